// The user's calendar.
#pragma once

#include "platform/Date.h"

namespace nookwise {

/// When the calendar month of `now` began, in the user's calendar and time zone. The distant past
/// where the calendar cannot tell.
Date startOfMonth(Date now);

}  // namespace nookwise
