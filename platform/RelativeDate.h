// Differences between dates in the user's calendar and time zone.
#pragma once

#include "platform/Date.h"

#include <string>

namespace nookwise {

/// `date` as seen from `now`, in short English with a number: "3 mo. ago", "in 5 min.". The unit is
/// the largest of year, month, week, day, hour, minute and second of which a whole one lies between
/// the two.
std::string relativeText(Date date, Date now);

/// Whole calendar months from `date` to `now`; negative when `date` is later.
int wholeMonthsBetween(Date date, Date now);

}  // namespace nookwise
