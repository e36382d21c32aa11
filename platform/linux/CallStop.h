// What ends one call before its time.
#pragma once

#include "platform/linux/OpenAt.h"

#include <stop_token>

#include <sys/eventfd.h>

namespace nookwise {

/// Joins two reasons to stop, for waits of both kinds: on a condition and on descriptors. Made and
/// destroyed by the thread that makes the call.
class CallStop {
  public:
    CallStop(const std::stop_token& caller, const std::stop_token& end)
        : event_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
          ofCaller_(caller, Request{*this}),
          ofEnd_(end, Request{*this}) {}

    /// False with errno set when the system had no descriptor left.
    explicit operator bool() const { return static_cast<bool>(event_); }

    std::stop_token token() const { return either_.get_token(); }
    /// Becomes readable, and stays so.
    int descriptor() const { return event_.get(); }

  private:
    struct Request {
        CallStop& call;
        void operator()() const {
            call.either_.request_stop();
            ::eventfd_write(call.event_.get(), 1);
        }
    };

    std::stop_source either_;
    FileDescriptor event_;
    // Last: they may be called as soon as they are there.
    std::stop_callback<Request> ofCaller_;
    std::stop_callback<Request> ofEnd_;
};

}  // namespace nookwise
