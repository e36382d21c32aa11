// Running the event loop until something has happened.
#pragma once

#include <QCoreApplication>
#include <QEventLoop>

namespace nookwise {

/// Ends with the test's own time limit when the condition never comes true.
template <typename Condition>
void runEventsUntil(Condition isMet) {
    while (!isMet())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace nookwise
