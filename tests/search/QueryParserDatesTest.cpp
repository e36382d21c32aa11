#include "search/QueryParser.h"
#include "tests/search/Berlin.h"
#include "tests/support/UserCalendar.h"

#include <string_view>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// What the question's only filter asks for.
QueryFilter::Dates datesAt(Date moment, std::string_view question) {
    const auto query = QueryParser::parse(question, moment);
    EXPECT_EQ(query.filters.size(), 1U) << question;
    if (query.filters.size() != 1) return {};
    const auto* const dates = std::get_if<QueryFilter::Dates>(&query.filters[0].rule);
    EXPECT_NE(dates, nullptr) << question;
    return dates == nullptr ? QueryFilter::Dates{} : *dates;
}

using Dates = QueryFilter::Dates;

TEST(Today, runsFromMidnightToMidnight) {
    EXPECT_EQ(datesAt(now, "today"), (Dates{utc(2024, 3, 12, 23), utc(2024, 3, 13, 23)}));
    const auto midnight = utc(2024, 3, 12, 23);
    EXPECT_EQ(datesAt(midnight, "today").start, midnight);
    EXPECT_EQ(datesAt(midnight - Seconds{0.001}, "today").end, midnight);
}

TEST(Yesterday, endsWhereTodayBegins) {
    EXPECT_EQ(datesAt(now, "yesterday"), (Dates{utc(2024, 3, 11, 23), utc(2024, 3, 12, 23)}));
}

TEST(Days, have23And25HoursWhereClocksAreMoved) {
    const auto inMarch = datesAt(utc(2024, 4, 1, 12), "yesterday");
    EXPECT_EQ(inMarch, (Dates{utc(2024, 3, 30, 23), utc(2024, 3, 31, 22)}));
    EXPECT_EQ(datesAt(utc(2024, 3, 31, 12), "today"), inMarch);
    const auto inOctober = datesAt(utc(2024, 10, 28, 12), "yesterday");
    EXPECT_EQ(inOctober, (Dates{utc(2024, 10, 26, 22), utc(2024, 10, 27, 23)}));
    EXPECT_EQ(datesAt(utc(2024, 10, 27, 12), "today"), inOctober);
}

TEST(Days, crossTheYearsEndAndTheLeapDay) {
    EXPECT_EQ(datesAt(utc(2024, 1, 1, 12), "yesterday"),
              (Dates{utc(2023, 12, 30, 23), utc(2023, 12, 31, 23)}));
    const auto leapDay = datesAt(utc(2024, 2, 29, 12), "today");
    EXPECT_EQ(leapDay, (Dates{utc(2024, 2, 28, 23), utc(2024, 2, 29, 23)}));
    EXPECT_EQ(datesAt(utc(2024, 3, 1, 12), "yesterday"), leapDay);
    EXPECT_EQ(datesAt(utc(2023, 3, 1, 12), "yesterday").start, utc(2023, 2, 27, 23));
}

TEST(Days, beginAfterAMidnightThatWasSkippedAndWithTheFirstOfTwo) {
    const Zone havana("America/Havana");
    EXPECT_EQ(datesAt(utc(2024, 3, 10, 12), "today"),
              (Dates{utc(2024, 3, 10, 5), utc(2024, 3, 11, 4)}));
    EXPECT_EQ(datesAt(utc(2024, 3, 11, 12), "yesterday").start, utc(2024, 3, 10, 5));
    EXPECT_EQ(datesAt(utc(2024, 11, 4, 12), "yesterday"),
              (Dates{utc(2024, 11, 3, 4), utc(2024, 11, 4, 5)}));
}

TEST(ThisAndLast, areWholeCalendarUnits) {
    EXPECT_EQ(datesAt(now, "this week"), (Dates{utc(2024, 3, 10, 23), utc(2024, 3, 17, 23)}));
    EXPECT_EQ(datesAt(now, "last week"), (Dates{utc(2024, 3, 3, 23), utc(2024, 3, 10, 23)}));
    EXPECT_EQ(datesAt(now, "this month"), (Dates{utc(2024, 2, 29, 23), utc(2024, 3, 31, 22)}));
    EXPECT_EQ(datesAt(now, "last month"), (Dates{utc(2024, 1, 31, 23), utc(2024, 2, 29, 23)}));
    EXPECT_EQ(datesAt(now, "this year"), (Dates{utc(2023, 12, 31, 23), utc(2024, 12, 31, 23)}));
    EXPECT_EQ(datesAt(now, "last year"), (Dates{utc(2022, 12, 31, 23), utc(2023, 12, 31, 23)}));
}

TEST(ThisAndLast, crossTheYearsEnd) {
    const auto januaryFirst = utc(2024, 1, 1, 12);
    EXPECT_EQ(datesAt(januaryFirst, "last month"),
              (Dates{utc(2023, 11, 30, 23), utc(2023, 12, 31, 23)}));
    EXPECT_EQ(datesAt(januaryFirst, "last week"),
              (Dates{utc(2023, 12, 24, 23), utc(2023, 12, 31, 23)}));
    EXPECT_EQ(datesAt(utc(2025, 1, 1, 12), "this week"),
              (Dates{utc(2024, 12, 29, 23), utc(2025, 1, 5, 23)}));
}

TEST(ThisAndLast, followSundayAndMonday) {
    EXPECT_EQ(datesAt(utc(2024, 3, 10, 12), "this week").end, utc(2024, 3, 10, 23)) << "a Sunday";
    EXPECT_EQ(datesAt(utc(2024, 3, 11, 12), "this week").start, utc(2024, 3, 10, 23)) << "a Monday";
}

TEST(ThisAndLast, beginOnTheFirstWeekdayOfTheRegion) {
    {
        const Region sundaysFirst("en_US.UTF-8");
        EXPECT_EQ(datesAt(now, "this week"), (Dates{utc(2024, 3, 9, 23), utc(2024, 3, 16, 23)}));
        EXPECT_EQ(datesAt(now, "last week"), (Dates{utc(2024, 3, 2, 23), utc(2024, 3, 9, 23)}));
        EXPECT_EQ(datesAt(utc(2024, 3, 10, 12), "this week").start, utc(2024, 3, 9, 23))
            << "on a Sunday";
    }
    const Region saturdaysFirst("ar_EG.UTF-8");
    EXPECT_EQ(datesAt(now, "this week").start, utc(2024, 3, 8, 23));
}

TEST(ThisAndLast, haveAnHourMoreOrLessWhereClocksAreMoved) {
    EXPECT_EQ(datesAt(utc(2024, 4, 3, 12), "last week"),
              (Dates{utc(2024, 3, 24, 23), utc(2024, 3, 31, 22)}));
    EXPECT_EQ(datesAt(utc(2024, 10, 30, 12), "last week"),
              (Dates{utc(2024, 10, 20, 22), utc(2024, 10, 27, 23)}));
    EXPECT_EQ(datesAt(utc(2024, 11, 5, 12), "last month"),
              (Dates{utc(2024, 9, 30, 22), utc(2024, 10, 31, 23)}));
}

TEST(ThisAndLast, countFromTheFirstEvenOnALastDay) {
    EXPECT_EQ(datesAt(utc(2024, 3, 31, 12), "last month"),
              (Dates{utc(2024, 1, 31, 23), utc(2024, 2, 29, 23)}));
    EXPECT_EQ(datesAt(utc(2024, 2, 29, 12), "last year"),
              (Dates{utc(2022, 12, 31, 23), utc(2023, 12, 31, 23)}));
    EXPECT_EQ(datesAt(utc(2024, 12, 31, 12), "last month"),
              (Dates{utc(2024, 10, 31, 23), utc(2024, 11, 30, 23)}));
}

TEST(Month, isItsLatestOneThatHasBegun) {
    EXPECT_EQ(datesAt(now, "jan"), (Dates{utc(2023, 12, 31, 23), utc(2024, 1, 31, 23)}));
    EXPECT_EQ(datesAt(now, "march"), (Dates{utc(2024, 2, 29, 23), utc(2024, 3, 31, 22)}))
        << "with its days still to come";
    EXPECT_EQ(datesAt(now, "april"), (Dates{utc(2023, 3, 31, 22), utc(2023, 4, 30, 22)}));
    EXPECT_EQ(datesAt(now, "december"), (Dates{utc(2023, 11, 30, 23), utc(2023, 12, 31, 23)}));
}

TEST(Month, countsTheMonthOfTheUsersZone) {
    EXPECT_EQ(datesAt(utc(2024, 3, 31, 22), "april").start, utc(2024, 3, 31, 22));
    EXPECT_EQ(datesAt(utc(2024, 3, 31, 22) - Seconds{1}, "april").start, utc(2023, 3, 31, 22));
}

TEST(Month, isOfTheYearThatWasTyped) {
    EXPECT_EQ(datesAt(now, "march 2023"), (Dates{utc(2023, 2, 28, 23), utc(2023, 3, 31, 22)}));
    EXPECT_EQ(datesAt(now, "feb 2024"), (Dates{utc(2024, 1, 31, 23), utc(2024, 2, 29, 23)}));
    EXPECT_EQ(datesAt(now, "dec 2030").end, utc(2030, 12, 31, 23)) << "still to come";
    EXPECT_EQ(datesAt(now, "march 1999"), datesAt(now, "march"));
}

TEST(Month, turnsWithTheYear) {
    const auto januaryFirst = utc(2024, 1, 1, 12);
    EXPECT_EQ(datesAt(januaryFirst, "jan").start, utc(2023, 12, 31, 23));
    EXPECT_EQ(datesAt(januaryFirst, "feb").start, utc(2023, 1, 31, 23));
    EXPECT_EQ(datesAt(utc(2023, 12, 31, 12), "dec").start, utc(2023, 11, 30, 23));
    EXPECT_EQ(datesAt(utc(2023, 12, 31, 23), "dec").start, utc(2023, 11, 30, 23)) << "over here";
}

TEST(Month, isAsLongAsItIsInThatYear) {
    EXPECT_EQ(datesAt(now, "feb").end, utc(2024, 2, 29, 23));
    EXPECT_EQ(datesAt(now, "feb 2023").end, utc(2023, 2, 28, 23));
    EXPECT_EQ(datesAt(now, "feb 2100").end, utc(2100, 2, 28, 23)) << "no leap year";
    EXPECT_EQ(datesAt(now, "feb 2000").end, utc(2000, 2, 29, 23)) << "a leap year";
}

TEST(Month, isCountedInTheUsersCalendar) {
    {
        const Region thailand("th_TH.UTF-8");
        EXPECT_EQ(datesAt(now, "march"), (Dates{utc(2024, 2, 29, 23), utc(2024, 3, 31, 22)}));
        EXPECT_EQ(datesAt(now, "april").start, utc(2023, 3, 31, 22));
        EXPECT_EQ(datesAt(now, "last year").start, utc(2022, 12, 31, 23));
    }
    const Region iran("fa_IR.UTF-8");
    EXPECT_EQ(datesAt(now, "this year"), (Dates{utc(2023, 3, 20, 23), utc(2024, 3, 19, 23)}));
    EXPECT_EQ(datesAt(now, "december"), datesAt(now, "this month")) << "its twelfth";
}

TEST(Dates, ofOneQuestionDoNotMixUp) {
    const auto query = QueryParser::parse("march march 2023 march 2022 march", now);
    ASSERT_EQ(query.filters.size(), 4U);
    EXPECT_EQ(query.filters[0].rule, QueryFilter::Rule{datesAt(now, "march")});
    EXPECT_EQ(query.filters[1].rule, QueryFilter::Rule{datesAt(now, "march 2023")});
    EXPECT_EQ(query.filters[2].rule, QueryFilter::Rule{datesAt(now, "march 2022")});
    EXPECT_EQ(query.filters[3], query.filters[0]);
}

TEST(Dates, atMomentsThatNoCalendarReachesEndNothing) {
    for (const auto moment : {distantPast, distantFuture}) {
        const auto query = QueryParser::parse("today yesterday last week march", moment);
        EXPECT_EQ(query.filters.size(), 4U);
    }
}

}  // namespace
}  // namespace nookwise
