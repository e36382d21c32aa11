#include "ui/window/HeldWindow.h"

#include <QGuiApplication>

namespace nookwise {

namespace {

/// A turn of the event loop delivers what the display has sent and ends with the timers that are
/// due. The turn in which the call was made has delivered its input already; what came during the
/// call is delivered in the next one.
constexpr int turnsUntilRelease = 2;

bool isPress(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        // Asks whether a key press is a shortcut.
        case QEvent::ShortcutOverride:
            return true;
        default:
            return false;
    }
}

}  // namespace

HeldWindow::HeldWindow(AppStore& store, QQuickWindow& window)
    : store_(store), window_(window), busy_(store.busy.observe([this] { busyChanged(); })) {
    connect(&turn_, &QTimer::timeout, this, &HeldWindow::turnPassed);
}

bool HeldWindow::eventFilter(QObject* receiver, QEvent* event) {
    if (!event->spontaneous() || !isPress(event->type()))
        return QObject::eventFilter(receiver, event);
    // Taken, so that it is no shortcut either.
    event->accept();
    return true;
}

void HeldWindow::busyChanged() {
    if (store_.busy.get()) {
        hold();
        paint();
    } else if (held_) {
        turnsLeft_ = turnsUntilRelease;
        turn_.start(0);
    }
}

void HeldWindow::paint() {
    // Handled by the window's render loop, which lays out, paints and hands the picture to the
    // display before it returns. `QQuickWindow::update` would only put this event into the queue.
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window_, &request);
}

void HeldWindow::hold() {
    if (held_) return;
    held_ = true;
    QCoreApplication::instance()->installEventFilter(this);
}

void HeldWindow::turnPassed() {
    if (--turnsLeft_ > 0) return;
    turn_.stop();
    release();
}

void HeldWindow::release() {
    held_ = false;
    QCoreApplication::instance()->removeEventFilter(this);
}

}  // namespace nookwise
