// The computer's clock.
#pragma once

#include "platform/Clock.h"

#include <chrono>

namespace nookwise {

class SystemClock : public Clock {
  public:
    Date now() const override { return std::chrono::system_clock::now(); }
};

}  // namespace nookwise
