#include "platform/RelativeDate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/reldatefmt.h>
#include <unicode/unistr.h>

namespace nookwise {
namespace {

struct CalendarUnit {
    UCalendarDateFields field;
    URelativeDateTimeUnit unit;
};

// Largest first. Differences in weeks of the year are whole weeks of seven days.
constexpr std::array<CalendarUnit, 7> units{{
    {UCAL_YEAR, UDAT_REL_UNIT_YEAR},
    {UCAL_MONTH, UDAT_REL_UNIT_MONTH},
    {UCAL_WEEK_OF_YEAR, UDAT_REL_UNIT_WEEK},
    {UCAL_DATE, UDAT_REL_UNIT_DAY},
    {UCAL_HOUR, UDAT_REL_UNIT_HOUR},
    {UCAL_MINUTE, UDAT_REL_UNIT_MINUTE},
    {UCAL_SECOND, UDAT_REL_UNIT_SECOND},
}};

/// ICU's milliseconds since 1970. Dates that no calendar reaches are moved to some 30,000 years
/// from 1970.
UDate icuDate(Date date) {
    constexpr double farthest = 1e15;
    const double milliseconds = date.time_since_epoch().count() * 1000.0;
    return std::isnan(milliseconds) ? 0.0
                                    : std::clamp(std::floor(milliseconds), -farthest, farthest);
}

std::unique_ptr<icu::Calendar> makeCalendar() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(status));
    return U_SUCCESS(status) ? std::move(calendar) : nullptr;
}

/// How many whole units lie from `start` to `end`; negative when `end` comes first.
int difference(icu::Calendar& calendar, UDate start, UDate end, UCalendarDateFields field) {
    UErrorCode status = U_ZERO_ERROR;
    calendar.setTime(start, status);
    const auto count = calendar.fieldDifference(end, field, status);
    return U_SUCCESS(status) ? count : 0;
}

icu::Calendar* userCalendar() {
    thread_local const auto calendar = makeCalendar();
    return calendar.get();
}

struct ShortEnglish {
    /// Of the construction. ICU does nothing with a formatter when told of its failure.
    UErrorCode status = U_ZERO_ERROR;
    icu::RelativeDateTimeFormatter formatter{icu::Locale::getEnglish(), nullptr, UDAT_STYLE_SHORT,
                                             UDISPCTX_CAPITALIZATION_NONE, status};
};

const ShortEnglish& shortEnglish() {
    thread_local const ShortEnglish shared;
    return shared;
}

}  // namespace

std::string relativeText(Date date, Date now) {
    auto* const calendar = userCalendar();
    const auto from = icuDate(now);
    const auto to = icuDate(date);
    // A negative zero is how the formatter is told that less than a second has passed.
    double count = to <= from ? -0.0 : 0.0;
    auto unit = UDAT_REL_UNIT_SECOND;
    for (const auto& candidate : units) {
        const int whole =
            calendar == nullptr ? 0 : difference(*calendar, from, to, candidate.field);
        if (whole == 0) continue;
        count = whole;
        unit = candidate.unit;
        break;
    }
    const auto& english = shortEnglish();
    UErrorCode status = english.status;
    icu::UnicodeString text;
    english.formatter.formatNumeric(count, unit, text, status);
    std::string utf8;
    return text.toUTF8String(utf8);
}

int wholeMonthsBetween(Date date, Date now) {
    auto* const calendar = userCalendar();
    return calendar == nullptr ? 0 : difference(*calendar, icuDate(date), icuDate(now), UCAL_MONTH);
}

}  // namespace nookwise
