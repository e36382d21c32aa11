// A clock that stands still until the test moves it.
#pragma once

#include "platform/Clock.h"

#include <mutex>

namespace nookwise {

/// Safe to use from several threads. Counts how often it was read.
class ManualClock : public Clock {
  public:
    explicit ManualClock(Date now) : now_(now) {}

    Date now() const override {
        const std::lock_guard lock(mutex_);
        ++reads_;
        return now_;
    }

    void set(Date now) {
        const std::lock_guard lock(mutex_);
        now_ = now;
    }

    int reads() const {
        const std::lock_guard lock(mutex_);
        return reads_;
    }

  private:
    mutable std::mutex mutex_;
    Date now_;
    mutable int reads_ = 0;
};

}  // namespace nookwise
