#include "platform/Calendar.h"

#include <cmath>
#include <memory>

#include <unicode/calendar.h>

namespace nookwise {

Date startOfMonth(Date now) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(status));
    if (U_FAILURE(status)) return distantPast;
    calendar->setTime(std::floor(now.time_since_epoch().count() * 1000.0), status);
    calendar->set(UCAL_DATE, calendar->getActualMinimum(UCAL_DATE, status));
    // The earliest moment of the day, also where clocks are moved at midnight.
    for (const auto field : {UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_SECOND, UCAL_MILLISECOND})
        calendar->set(field, 0);
    const auto start = calendar->getTime(status);
    return U_SUCCESS(status) ? Date(Seconds(start / 1000.0)) : distantPast;
}

}  // namespace nookwise
