#include "platform/Calendar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <unicode/calendar.h>
#include <unicode/locid.h>

namespace nookwise {
namespace {

/// ICU's default locale is the one of texts; which weekday is the first belongs to the one of
/// dates, which users set apart from it.
icu::Locale localeOfDates() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        const auto locale = icu::Locale::createCanonical(value);
        const std::string_view name(value);
        const bool isNone = name == "C" || name == "POSIX" || name.starts_with("C.");
        return isNone || locale.isBogus() ? icu::Locale::getDefault() : locale;
    }
    return icu::Locale::getDefault();
}

/// A calendar set to a moment, whose failures add up to one answer.
class Moment {
  public:
    explicit Moment(Date date)
        : calendar_(icu::Calendar::createInstance(localeOfDates(), status_)) {
        if (!isGood()) return;
        // The first of two midnights, and the moment after clocks were moved past one.
        calendar_->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
        calendar_->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
        // Some 30,000 years, to which dates that no calendar reaches are moved.
        constexpr double farthest = 1e15;
        const double milliseconds = std::floor(date.time_since_epoch().count() * 1000.0);
        calendar_->setTime(
            std::isnan(milliseconds) ? 0.0 : std::clamp(milliseconds, -farthest, farthest),
            status_);
    }

    int get(UCalendarDateFields field) { return isGood() ? calendar_->get(field, status_) : 0; }

    void add(UCalendarDateFields field, int amount) {
        if (isGood()) calendar_->add(field, amount, status_);
    }

    /// To noon of the unit's first day. From noon, whole days can be added without meeting an hour
    /// that was skipped or repeated.
    void moveToFirstDayOf(CalendarUnit unit) {
        moveToHour(noon);
        switch (unit) {
            case CalendarUnit::week:
                moveToFirstWeekday();
                break;
            case CalendarUnit::month:
                set(UCAL_DATE, minimum(UCAL_DATE));
                break;
            case CalendarUnit::year:
                set(UCAL_DAY_OF_YEAR, minimum(UCAL_DAY_OF_YEAR));
                break;
        }
        settle();
    }

    void moveToFirstDayOf(YearAndMonth month) {
        if (!isGood()) return;
        calendar_->clear();
        calendar_->set(month.year, month.month - 1, 1, noon, 0);
        settle();
    }

    void moveToNoon() { moveToHour(noon); }

    void moveToStartOfDay() { moveToHour(0); }

    Date date() {
        if (!isGood()) return distantPast;
        const auto milliseconds = calendar_->getTime(status_);
        return isGood() ? Date(Seconds(milliseconds / 1000.0)) : distantPast;
    }

  private:
    static constexpr int noon = 12;

    bool isGood() const { return U_SUCCESS(status_) && calendar_ != nullptr; }

    int minimum(UCalendarDateFields field) {
        return isGood() ? calendar_->getActualMinimum(field, status_) : 0;
    }

    void set(UCalendarDateFields field, int value) {
        if (isGood()) calendar_->set(field, value);
    }

    /// Has what was set take effect before anything else is set.
    void settle() { get(UCAL_DATE); }

    void moveToHour(int hour) {
        set(UCAL_HOUR_OF_DAY, hour);
        for (const auto field : {UCAL_MINUTE, UCAL_SECOND, UCAL_MILLISECOND}) set(field, 0);
        settle();
    }

    void moveToFirstWeekday() {
        if (!isGood()) return;
        const int first = calendar_->getFirstDayOfWeek(status_);
        constexpr int weekdays = 7;
        const int past = (get(UCAL_DAY_OF_WEEK) - first + weekdays) % weekdays;
        add(UCAL_DATE, -past);
    }

    UErrorCode status_ = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar_;
};

UCalendarDateFields fieldOf(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::week:
            return UCAL_WEEK_OF_YEAR;
        case CalendarUnit::month:
            return UCAL_MONTH;
        case CalendarUnit::year:
            return UCAL_YEAR;
    }
    return UCAL_DATE;
}

/// The start of the unit that lies `units` after the one that contains `now`.
Date startOf(Date now, CalendarUnit unit, int units) {
    Moment moment(now);
    moment.moveToFirstDayOf(unit);
    moment.add(fieldOf(unit), units);
    moment.moveToStartOfDay();
    return moment.date();
}

Date startOfDay(Date now, int days) {
    Moment moment(now);
    moment.moveToNoon();
    moment.add(UCAL_DATE, days);
    moment.moveToStartOfDay();
    return moment.date();
}

}  // namespace

DateInterval dayOf(Date now, int days) {
    return {startOfDay(now, days), startOfDay(now, days + 1)};
}

DateInterval unitOf(Date now, CalendarUnit unit) {
    return {startOf(now, unit, 0), startOf(now, unit, 1)};
}

DateInterval unitBefore(Date now, CalendarUnit unit) {
    return {startOf(now, unit, -1), startOf(now, unit, 0)};
}

YearAndMonth yearAndMonthOf(Date now) {
    Moment moment(now);
    return {moment.get(UCAL_YEAR), moment.get(UCAL_MONTH) + 1};
}

DateInterval intervalOf(YearAndMonth month) {
    Moment moment(Date{});
    moment.moveToFirstDayOf(month);
    return unitOf(moment.date(), CalendarUnit::month);
}

Date startOfMonth(Date now) {
    return startOf(now, CalendarUnit::month, 0);
}

}  // namespace nookwise
