#include "ui/window/EndTransfer.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace nookwise {

void endTransfer(AppStore& store) {
    store.cancelTransfer();
    // An event loop of its own would end with the first event that asks the application to quit.
    while (store.transferring.get()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
    }
}

}  // namespace nookwise
