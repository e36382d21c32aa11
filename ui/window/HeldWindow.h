// Keeps the window alive to the eye while a call holds it up.
#pragma once

#include "app/AppStore.h"

#include <QObject>
#include <QQuickWindow>
#include <QTimer>

namespace nookwise {

/// Files are moved on the UI thread, one after the other, and nothing else may change the state
/// meanwhile: no event, no timer and no input may be delivered before the call returns. So the
/// event loop does not run. Each step of `AppStore::busy` is painted at once instead, by handing
/// the window the request to paint that it would otherwise find in its queue. Animations stand
/// still.
///
/// What the user pressed into the standing window was meant for a window that is no longer shown,
/// and is dropped when the event loop runs again.
class HeldWindow : public QObject {
  public:
    /// Both must outlive it.
    HeldWindow(AppStore& store, QQuickWindow& window);

    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    void busyChanged();
    void paint();
    void hold();
    void turnPassed();
    void release();

    AppStore& store_;
    QQuickWindow& window_;
    bool held_ = false;
    QTimer turn_;
    /// Turns of the event loop until input is let in again.
    int turnsLeft_ = 0;
    Subscription busy_;
};

}  // namespace nookwise
