// The window's size and section from one start to the next.
#pragma once

#include "platform/UserDefaults.h"
#include "ui/window/SidebarModel.h"

#include <QQuickWindow>
#include <QTimer>

namespace nookwise {

/// Restores when made; remembers a moment after each change, and at its end. Must not outlive the
/// window.
class WindowMemory : public QObject {
    Q_OBJECT

  public:
    WindowMemory(QQuickWindow& window, SidebarModel& sidebar, UserDefaults& defaults);
    ~WindowMemory() override;

  private:
    void restore();
    void rememberSoon();
    void remember();

    QQuickWindow& window_;
    SidebarModel& sidebar_;
    UserDefaults& defaults_;
    /// A window that is being resized changes with every frame, and every setting is a write to the
    /// disk.
    QTimer soon_;
};

}  // namespace nookwise
