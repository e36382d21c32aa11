// The time of day.
#pragma once

#include "platform/Date.h"

namespace nookwise {

/// May be read from any thread.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
};

}  // namespace nookwise
