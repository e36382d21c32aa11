#include "platform/Calendar.h"

#include <cstdlib>

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

}  // namespace
}  // namespace nookwise
