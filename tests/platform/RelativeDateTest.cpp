#include "platform/RelativeDate.h"

#include <cstdlib>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

// A zone with summer time, chosen before anything asks for the user's.
const int zoneIsChosen = setenv("TZ", "Europe/Berlin", 1);

Date utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0) {
    using namespace std::chrono;
    return sys_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day)) +
           hours(hour) + minutes(minute) + seconds(second);
}

constexpr double day = 86'400;

struct Relative {
    Date date;
    Date now;
    std::string text;
};

// Keeps the names of the tests free of raw bytes.
void PrintTo(const Relative& relative, std::ostream* out) {
    *out << relative.text;
}

class RelativeText : public testing::TestWithParam<Relative> {};

TEST_P(RelativeText, namesTheLargestCalendarUnitThatIsNotZero) {
    EXPECT_EQ(relativeText(GetParam().date, GetParam().now), GetParam().text);
}

Relative ago(double seconds, std::string text) {
    const auto now = utc(2023, 11, 14, 12);
    return {now - Seconds(seconds), now, std::move(text)};
}

INSTANTIATE_TEST_SUITE_P(Units, RelativeText,
                         testing::Values(ago(1, "1 sec. ago"), ago(59, "59 sec. ago"),
                                         ago(60, "1 min. ago"), ago(3'599, "59 min. ago"),
                                         ago(3'600, "1 hr. ago"), ago(day - 1, "23 hr. ago"),
                                         ago(day, "1 day ago"), ago(6 * day, "6 days ago"),
                                         ago(7 * day - 1, "6 days ago"), ago(7 * day, "1 wk. ago"),
                                         ago(14 * day, "2 wk. ago"), ago(0.5, "0 sec. ago"),
                                         ago(-1, "in 1 sec."), ago(-300, "in 5 min."),
                                         ago(-7'200, "in 2 hr."), ago(-day, "in 1 day"),
                                         ago(-15 * day, "in 2 wk.")));

INSTANTIATE_TEST_SUITE_P(
    CalendarMonths, RelativeText,
    testing::Values(Relative{utc(2023, 10, 15, 12), utc(2023, 11, 14, 12), "4 wk. ago"},
                    Relative{utc(2023, 10, 14, 10), utc(2023, 11, 14, 12), "1 mo. ago"},
                    Relative{utc(2023, 8, 14, 10), utc(2023, 11, 14, 12), "3 mo. ago"},
                    Relative{utc(2023, 8, 14, 10), utc(2023, 11, 14, 9), "2 mo. ago"},
                    Relative{utc(2022, 11, 15, 12), utc(2023, 11, 14, 12), "11 mo. ago"},
                    Relative{utc(2022, 11, 14, 12), utc(2023, 11, 14, 12), "1 yr. ago"},
                    Relative{utc(2021, 11, 14, 12), utc(2023, 11, 14, 12), "2 yr. ago"},
                    Relative{utc(2024, 1, 1, 12), utc(2024, 2, 29, 12), "1 mo. ago"},
                    Relative{utc(2023, 2, 28, 12), utc(2024, 2, 29, 12), "1 yr. ago"},
                    Relative{utc(2024, 2, 14, 12), utc(2023, 11, 14, 12), "in 3 mo."},
                    Relative{utc(2033, 11, 14, 12), utc(2023, 11, 14, 12), "in 10 yr."}));

// Clocks go forward on 31 March 2024 and back on 27 October 2024.
INSTANTIATE_TEST_SUITE_P(
    SummerTime, RelativeText,
    testing::Values(Relative{utc(2024, 3, 30, 11), utc(2024, 3, 31, 10), "1 day ago"},
                    Relative{utc(2024, 3, 31, 0, 30), utc(2024, 3, 31, 1, 30), "1 hr. ago"},
                    Relative{utc(2024, 10, 26, 10), utc(2024, 10, 27, 10, 30), "24 hr. ago"},
                    Relative{utc(2024, 10, 26, 10), utc(2024, 10, 27, 11), "1 day ago"},
                    Relative{utc(2024, 3, 24, 11), utc(2024, 3, 31, 10), "1 wk. ago"},
                    Relative{utc(2024, 2, 29, 11), utc(2024, 3, 31, 10), "1 mo. ago"}));

INSTANTIATE_TEST_SUITE_P(
    FarAway, RelativeText,
    testing::Values(Relative{utc(1960, 1, 1), utc(2023, 11, 14), "63 yr. ago"},
                    Relative{utc(1969, 12, 31), utc(1970, 1, 1), "1 day ago"},
                    Relative{utc(1901, 12, 13), utc(1902, 12, 13), "1 yr. ago"},
                    Relative{utc(2263, 11, 14), utc(2023, 11, 14), "in 240 yr."},
                    Relative{utc(2500, 1, 1), utc(2500, 3, 1), "2 mo. ago"}));

class DatesThatNoCalendarReaches : public testing::TestWithParam<double> {};

TEST_P(DatesThatNoCalendarReaches, neitherHangNorEndTheProgram) {
    const Date strange{Seconds{GetParam()}};
    const auto now = utc(2023, 11, 14);
    EXPECT_FALSE(relativeText(strange, now).empty());
    EXPECT_FALSE(relativeText(now, strange).empty());
    EXPECT_FALSE(relativeText(strange, strange).empty());
    EXPECT_EQ(wholeMonthsBetween(strange, strange), 0);
    EXPECT_EQ(wholeMonthsBetween(strange, now) < 0, GetParam() > 0);
}

INSTANTIATE_TEST_SUITE_P(Seconds, DatesThatNoCalendarReaches,
                         testing::Values(-std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::max(),
                                         std::numeric_limits<double>::lowest(), 9.3e18, -9.3e18,
                                         1e300));

TEST(RelativeTextOfNoDate, neitherHangsNorEndsTheProgram) {
    const Date nan{Seconds{std::numeric_limits<double>::quiet_NaN()}};
    EXPECT_FALSE(relativeText(nan, utc(2023, 11, 14)).empty());
    EXPECT_FALSE(relativeText(utc(2023, 11, 14), nan).empty());
}

struct Months {
    Date date;
    Date now;
    int months;
};

void PrintTo(const Months& months, std::ostream* out) {
    *out << months.months << " months";
}

class WholeMonths : public testing::TestWithParam<Months> {};

TEST_P(WholeMonths, areCountedInTheCalendar) {
    EXPECT_EQ(wholeMonthsBetween(GetParam().date, GetParam().now), GetParam().months);
}

INSTANTIATE_TEST_SUITE_P(Dates, WholeMonths,
                         testing::Values(Months{utc(2023, 11, 14, 12), utc(2023, 11, 14, 12), 0},
                                         Months{utc(2023, 9, 16, 12), utc(2023, 11, 14, 12), 1},
                                         Months{utc(2023, 9, 14, 12), utc(2023, 11, 14, 13), 2},
                                         Months{utc(2023, 9, 14, 12), utc(2023, 11, 14, 12, 59), 1},
                                         Months{utc(2023, 1, 1, 12), utc(2023, 3, 1, 12), 2},
                                         Months{utc(2023, 1, 31, 12), utc(2023, 2, 28, 12), 1},
                                         Months{utc(2021, 11, 14, 12), utc(2023, 11, 14, 12), 24},
                                         Months{utc(2023, 12, 14, 12), utc(2023, 11, 14, 12), -1},
                                         Months{utc(1969, 11, 14, 12), utc(1970, 11, 14, 12), 12},
                                         Months{utc(2270, 1, 1), utc(2270, 6, 30), 5}));

}  // namespace
}  // namespace nookwise
