#include "platform/InternetDate.h"

#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr Date morning{Seconds{1'791'970'200}};  // 2026-10-14 09:30:00 UTC

TEST(InternetDate, hasWholeSecondsInUtc) {
    EXPECT_EQ(internetDate(morning), "2026-10-14T09:30:00Z");
    EXPECT_EQ(internetDate(Date{}), "1970-01-01T00:00:00Z");
    EXPECT_EQ(internetDate(Date{Seconds{-1}}), "1969-12-31T23:59:59Z");
}

TEST(InternetDate, dropsTheFractionOfASecond) {
    EXPECT_EQ(internetDate(morning + Seconds{0.7}), "2026-10-14T09:30:00Z");
    EXPECT_EQ(dateFromInternetDate(internetDate(morning + Seconds{0.7})), morning);
}

TEST(InternetDate, staysAmongTheYearsOfFourDigits) {
    EXPECT_EQ(internetDate(distantPast), "0000-01-01T00:00:00Z");
    EXPECT_EQ(internetDate(distantFuture), "9999-12-31T23:59:59Z");
    EXPECT_EQ(internetDate(Date{Seconds{std::numeric_limits<double>::quiet_NaN()}}),
              "0000-01-01T00:00:00Z");
    EXPECT_EQ(dateFromInternetDate("0000-01-01T00:00:00Z"), Date{Seconds{-62'167'219'200.0}});
}

TEST(InternetDate, isReadWithAnOffset) {
    EXPECT_EQ(dateFromInternetDate("2026-10-14T11:30:00+02:00"), morning);
    EXPECT_EQ(dateFromInternetDate("2026-10-14T04:00:00-05:30"), morning);
}

TEST(InternetDate, isReadOnLeapDaysOfLeapYearsOnly) {
    EXPECT_TRUE(dateFromInternetDate("2024-02-29T00:00:00Z"));
    EXPECT_FALSE(dateFromInternetDate("2026-02-29T00:00:00Z"));
}

TEST(InternetDate, isNotReadFromAnythingElse) {
    for (const auto* text :
         {"", "2026-10-14", "2026-10-14T09:30:00", "2026-10-14T09:30:00.7Z", "2026-10-14 09:30:00Z",
          "2026-13-14T09:30:00Z", "2026-10-32T09:30:00Z", "2026-10-14T24:30:00Z",
          "2026-10-14T09:60:00Z", "2026-10-14T09:30:60Z", "2026-10-14T09:30:00Zx",
          "+026-10-14T09:30:00Z", "2026-10-14T09:30:00+0200", "2026-1-14T09:30:00Z",
          "2026-10-14T-9:30:00Z", "2026-10-14T09:30:00+-2:00"}) {
        EXPECT_FALSE(dateFromInternetDate(text)) << text;
    }
}

}  // namespace
}  // namespace nookwise
