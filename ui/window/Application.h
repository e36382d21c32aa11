// Brings the application up over a platform.
#pragma once

#include "app/Platform.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQuickWindow>
#include <memory>

namespace nookwise {

/// The Qt application with its one window.
class Application {
  public:
    /// Null, after a message on standard error, when no window can be opened here. `argc` and
    /// `argv` must outlive the result.
    static std::unique_ptr<Application> create(int& argc, char** argv);

    /// Shows the main window until the user quits. Returns the process's exit status.
    int run(const Platform& platform);

    /// Brings the main window to the front, wherever it is. Without one it does nothing.
    void showWindow();

  private:
    Application(int& argc, char** argv) : qt_(argc, argv) {}

    QGuiApplication qt_;
    QPointer<QQuickWindow> window_;
};

}  // namespace nookwise
