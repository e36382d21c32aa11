#include "platform/Calendar.h"
#include "tests/support/UserCalendar.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

// A zone with summer time, chosen before anything asks for the user's; the whole program uses it.
const int zoneIsChosen = setenv("TZ", "Europe/Berlin", 1);

Date utc(int year, unsigned month, unsigned day, int hour = 0) {
    using namespace std::chrono;
    return sys_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day)) +
           hours(hour);
}

TEST(StartOfMonth, isMidnightOfTheFirstInTheUsersZone) {
    EXPECT_EQ(startOfMonth(utc(2026, 11, 21, 12)), utc(2026, 10, 31, 23));
    EXPECT_EQ(startOfMonth(utc(2026, 7, 1, 1)), utc(2026, 6, 30, 22)) << "summer time";
}

TEST(StartOfMonth, ofThatVeryMomentIsThatMoment) {
    const auto start = utc(2026, 10, 31, 23);
    EXPECT_EQ(startOfMonth(start), start);
    EXPECT_EQ(startOfMonth(start - Seconds{0.5}), utc(2026, 9, 30, 22));
}

TEST(StartOfMonth, knowsTheMonthInWhichClocksAreMoved) {
    EXPECT_EQ(startOfMonth(utc(2026, 10, 30)), utc(2026, 9, 30, 22));
    EXPECT_EQ(startOfMonth(utc(2026, 3, 31, 12)), utc(2026, 2, 28, 23));
}

TEST(DayOf, runsFromMidnightToMidnight) {
    const DateInterval today{utc(2026, 7, 14, 22), utc(2026, 7, 15, 22)};
    EXPECT_EQ(dayOf(utc(2026, 7, 15, 12)), today);
    EXPECT_EQ(dayOf(today.start), today);
    EXPECT_EQ(dayOf(today.end - Seconds{0.5}), today);
    EXPECT_EQ(dayOf(today.end).start, today.end);
}

TEST(DayOf, countsCalendarDays) {
    EXPECT_EQ(dayOf(utc(2026, 3, 1, 12), -1).start, utc(2026, 2, 27, 23));
    EXPECT_EQ(dayOf(utc(2026, 12, 31, 12), 1).start, utc(2026, 12, 31, 23));
}

TEST(DayOf, has23Or25HoursWhereClocksAreMoved) {
    const auto shortDay = dayOf(utc(2026, 3, 29, 12));
    EXPECT_EQ(shortDay, (DateInterval{utc(2026, 3, 28, 23), utc(2026, 3, 29, 22)}));
    EXPECT_EQ(dayOf(utc(2026, 3, 30, 12), -1), shortDay);
    const auto longDay = dayOf(utc(2026, 10, 25, 12));
    EXPECT_EQ(longDay, (DateInterval{utc(2026, 10, 24, 22), utc(2026, 10, 25, 23)}));
    EXPECT_EQ(dayOf(utc(2026, 10, 26, 12), -1), longDay);
}

TEST(DayOf, beginsWhenAMidnightWasSkipped) {
    const Zone havana("America/Havana");
    const Region sundaysFirst("en_US.UTF-8");
    const DateInterval day{utc(2026, 3, 8, 5), utc(2026, 3, 9, 4)};
    EXPECT_EQ(dayOf(utc(2026, 3, 8, 12)), day);
    EXPECT_EQ(dayOf(utc(2026, 3, 7, 12), 1), day);
    EXPECT_EQ(dayOf(utc(2026, 3, 9, 12), -1), day);
    EXPECT_EQ(unitBefore(utc(2026, 3, 15, 12), CalendarUnit::week),
              unitOf(day.start, CalendarUnit::week));
    EXPECT_EQ(unitOf(day.start, CalendarUnit::week),
              (DateInterval{utc(2026, 3, 8, 5), utc(2026, 3, 15, 4)}));
}

TEST(DayOf, beginsWithTheFirstOfTwoMidnights) {
    const Zone havana("America/Havana");
    const DateInterval day{utc(2026, 11, 1, 4), utc(2026, 11, 2, 5)};
    EXPECT_EQ(dayOf(utc(2026, 11, 1, 12)), day);
    EXPECT_EQ(dayOf(day.start + Seconds{60}), day);
    EXPECT_EQ(dayOf(day.start + Seconds{3'660}), day) << "after clocks were moved";
    EXPECT_EQ(dayOf(utc(2026, 11, 2, 12), -1), day);
    EXPECT_EQ(startOfMonth(utc(2026, 11, 20)), day.start);
}

TEST(Week, beginsOnTheRegionsFirstWeekday) {
    const auto wednesday = utc(2026, 7, 15, 12);
    {
        const Region germany("de_DE.UTF-8");
        EXPECT_EQ(unitOf(wednesday, CalendarUnit::week),
                  (DateInterval{utc(2026, 7, 12, 22), utc(2026, 7, 19, 22)}));
    }
    {
        const Region america("en_US.UTF-8");
        EXPECT_EQ(unitOf(wednesday, CalendarUnit::week),
                  (DateInterval{utc(2026, 7, 11, 22), utc(2026, 7, 18, 22)}));
    }
    {
        const Region egypt("ar_EG");
        EXPECT_EQ(unitOf(wednesday, CalendarUnit::week).start, utc(2026, 7, 10, 22));
    }
}

TEST(Week, ofItsFirstAndLastMomentIsThatWeek) {
    const Region germany("de_DE.UTF-8");
    const DateInterval week{utc(2026, 7, 12, 22), utc(2026, 7, 19, 22)};
    EXPECT_EQ(unitOf(week.start, CalendarUnit::week), week);
    EXPECT_EQ(unitOf(week.end - Seconds{0.5}, CalendarUnit::week), week);
    EXPECT_EQ(unitBefore(week.end, CalendarUnit::week), week);
}

TEST(Week, mayLieInTwoYearsAndAcrossMovedClocks) {
    const Region germany("de_DE.UTF-8");
    EXPECT_EQ(unitOf(utc(2027, 1, 2), CalendarUnit::week),
              (DateInterval{utc(2026, 12, 27, 23), utc(2027, 1, 3, 23)}));
    EXPECT_EQ(unitBefore(utc(2026, 4, 1), CalendarUnit::week),
              (DateInterval{utc(2026, 3, 22, 23), utc(2026, 3, 29, 22)}));
}

TEST(Month, runsFromTheFirstToTheNextFirst) {
    EXPECT_EQ(unitOf(utc(2024, 2, 29, 12), CalendarUnit::month),
              (DateInterval{utc(2024, 1, 31, 23), utc(2024, 2, 29, 23)}));
    EXPECT_EQ(unitOf(utc(2026, 3, 31, 12), CalendarUnit::month),
              (DateInterval{utc(2026, 2, 28, 23), utc(2026, 3, 31, 22)}));
}

TEST(Month, beforeIsTheWholeCalendarMonth) {
    EXPECT_EQ(unitBefore(utc(2026, 3, 31, 12), CalendarUnit::month),
              (DateInterval{utc(2026, 1, 31, 23), utc(2026, 2, 28, 23)}));
    EXPECT_EQ(unitBefore(utc(2026, 1, 15), CalendarUnit::month),
              (DateInterval{utc(2025, 11, 30, 23), utc(2025, 12, 31, 23)}));
}

TEST(Year, runsFromTheFirstOfJanuary) {
    const DateInterval year{utc(2025, 12, 31, 23), utc(2026, 12, 31, 23)};
    EXPECT_EQ(unitOf(utc(2026, 7, 1), CalendarUnit::year), year);
    EXPECT_EQ(unitOf(year.start, CalendarUnit::year), year);
    EXPECT_EQ(unitBefore(utc(2027, 12, 31), CalendarUnit::year), year);
}

TEST(YearAndMonth, areThoseOfTheUsersZone) {
    EXPECT_EQ(yearAndMonthOf(utc(2026, 12, 31, 22)), (YearAndMonth{2026, 12}));
    EXPECT_EQ(yearAndMonthOf(utc(2026, 12, 31, 23)), (YearAndMonth{2027, 1}));
}

TEST(YearAndMonth, haveAnInterval) {
    EXPECT_EQ(intervalOf({2023, 3}), (DateInterval{utc(2023, 2, 28, 23), utc(2023, 3, 31, 22)}));
    EXPECT_EQ(intervalOf({2100, 12}), (DateInterval{utc(2100, 11, 30, 23), utc(2100, 12, 31, 23)}));
    EXPECT_EQ(intervalOf({2024, 2}), (DateInterval{utc(2024, 1, 31, 23), utc(2024, 2, 29, 23)}));
}

TEST(Region, isSetByTheFirstVariableThatNamesOne) {
    const Region none("");
    const auto* const language = std::getenv("LANG");
    const std::string kept = language == nullptr ? "" : language;
    setenv("LANG", "en_US.UTF-8", 1);
    const auto wednesday = utc(2026, 7, 15, 12);
    EXPECT_EQ(unitOf(wednesday, CalendarUnit::week).start, utc(2026, 7, 11, 22));
    setenv("LC_TIME", "en_GB.UTF-8", 1);
    EXPECT_EQ(unitOf(wednesday, CalendarUnit::week).start, utc(2026, 7, 12, 22));
    unsetenv("LC_TIME");
    setenv("LANG", kept.c_str(), 1);
}

TEST(Calendar, countsItsOwnYears) {
    const Region thailand("th_TH.UTF-8");
    EXPECT_EQ(yearAndMonthOf(utc(2026, 7, 15)), (YearAndMonth{2569, 7}));
    EXPECT_EQ(intervalOf({2569, 7}).start, utc(2026, 6, 30, 22));
}

TEST(Calendar, takesDatesThatNoCalendarReaches) {
    for (const auto date : {distantPast, distantFuture, Date(Seconds(std::nan("")))}) {
        const auto day = dayOf(date, -1);
        EXPECT_LE(day.start, day.end);
        const auto year = unitBefore(date, CalendarUnit::year);
        EXPECT_LE(year.start, year.end);
    }
}

}  // namespace
}  // namespace nookwise
