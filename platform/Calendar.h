// The user's calendar.
#pragma once

#include "platform/Date.h"

namespace nookwise {

// All in the user's calendar and time zone; weeks begin on the first weekday of the user's region.
// Where the calendar cannot tell, the dates are the distant past.

enum class CalendarUnit { week, month, year };

struct DateInterval {
    Date start;
    /// No longer part of it.
    Date end;

    friend bool operator==(const DateInterval&, const DateInterval&) = default;
};

/// Both counted from 1.
struct YearAndMonth {
    int year = 0;
    int month = 0;

    friend bool operator==(const YearAndMonth&, const YearAndMonth&) = default;
};

/// The calendar day that lies `days` after the one of `now`: 23 to 25 hours where clocks are moved.
DateInterval dayOf(Date now, int days = 0);

/// The calendar unit that contains `now`.
DateInterval unitOf(Date now, CalendarUnit unit);

/// The one before it.
DateInterval unitBefore(Date now, CalendarUnit unit);

YearAndMonth yearAndMonthOf(Date now);

DateInterval intervalOf(YearAndMonth month);

/// When the calendar month of `now` began.
Date startOfMonth(Date now);

}  // namespace nookwise
