// Brings the application up over a platform.
#pragma once

#include "app/Platform.h"
#include "platform/UserDefaults.h"

#include <QGuiApplication>
#include <memory>

namespace nookwise {

/// The Qt application with its one window.
class Application {
  public:
    /// Null, after a message on standard error, when no window can be opened here. `argc` and
    /// `argv` must outlive the result.
    static std::unique_ptr<Application> create(int& argc, char** argv);

    /// Shows the main window until the user quits. Returns the process's exit status.
    int run(const Platform& platform, UserDefaults& defaults);

  private:
    Application(int& argc, char** argv) : qt_(argc, argv) {}

    QGuiApplication qt_;
};

}  // namespace nookwise
