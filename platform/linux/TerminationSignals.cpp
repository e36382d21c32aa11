#include "platform/linux/TerminationSignals.h"

#include <atomic>
#include <cerrno>
#include <utility>

#include <sys/eventfd.h>

namespace nookwise {
namespace {

/// A signal's handler is given nothing but the signal's number.
std::atomic<int> eventOfHandler{-1};
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void tellOfSignal(int) {
    const int reason = errno;
    ::eventfd_write(eventOfHandler, 1);
    errno = reason;
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> asked)
    : event_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!event_) return;
    eventOfHandler = event_.get();
    notifier_ = std::make_unique<QSocketNotifier>(event_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [event = event_.get(), asked = std::move(asked)] {
                         eventfd_t count = 0;
                         ::eventfd_read(event, &count);
                         asked();
                     });
    struct sigaction action {};
    action.sa_handler = tellOfSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (std::size_t i = 0; i < caught.size(); ++i) {
        ::sigaction(caught[i], nullptr, &usual_[i]);
        // Whoever started the process may want it to live on after the session.
        if (usual_[i].sa_handler != SIG_IGN) ::sigaction(caught[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    if (!event_) return;
    for (std::size_t i = 0; i < caught.size(); ++i) ::sigaction(caught[i], &usual_[i], nullptr);
    eventOfHandler = -1;
}

}  // namespace nookwise
