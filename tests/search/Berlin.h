// Questions asked in Berlin, by a calendar whose weeks begin on Monday, whatever the machine's are.
#pragma once

#include "platform/Date.h"

#include <cstdlib>

namespace nookwise {

// Chosen before anything asks for the user's; the whole program uses them.
inline const int zoneIsChosen = setenv("TZ", "Europe/Berlin", 1);
inline const int regionIsChosen = setenv("LC_ALL", "en_GB.UTF-8", 1);

/// `hour` may be negative.
inline Date utc(int year, unsigned month, unsigned day, int hour = 0) {
    using namespace std::chrono;
    return sys_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day)) +
           hours(hour);
}

/// A Wednesday in the middle of March.
inline const Date now = utc(2024, 3, 13, 12);

}  // namespace nookwise
