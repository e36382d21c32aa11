#include "model/Fmt.h"

#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

const int zoneIsChosen = setenv("TZ", "UTC", 1);

constexpr Date now{Seconds{1'700'000'000}};  // 14 November 2023, 22:13:20 UTC
constexpr double day = 86'400;

struct ByteCount {
    std::int64_t count;
    std::string_view text;
};

class ByteCountText : public testing::TestWithParam<ByteCount> {};

TEST_P(ByteCountText, isDecimalWithKilobytesAsSmallestUnit) {
    EXPECT_EQ(Fmt::bytes(GetParam().count), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Kilobytes, ByteCountText,
                         testing::Values(ByteCount{0, "Zero KB"}, ByteCount{999, "1 KB"},
                                         ByteCount{1'000, "1 KB"}, ByteCount{1'499, "1 KB"},
                                         ByteCount{1'500, "2 KB"}, ByteCount{2'499, "2 KB"},
                                         ByteCount{65'536, "66 KB"}, ByteCount{100'000, "100 KB"},
                                         ByteCount{999'499, "999 KB"}));

INSTANTIATE_TEST_SUITE_P(
    Megabytes, ByteCountText,
    testing::Values(ByteCount{999'500, "1 MB"}, ByteCount{999'999, "1 MB"},
                    ByteCount{1'000'000, "1 MB"}, ByteCount{1'049'999, "1 MB"},
                    ByteCount{1'050'000, "1.1 MB"}, ByteCount{1'500'000, "1.5 MB"},
                    ByteCount{1'549'999, "1.5 MB"}, ByteCount{1'949'999, "1.9 MB"},
                    ByteCount{1'950'000, "2 MB"}, ByteCount{10'000'000, "10 MB"},
                    ByteCount{100'000'000, "100 MB"}, ByteCount{500'000'000, "500 MB"},
                    ByteCount{999'949'999, "999.9 MB"}));

INSTANTIATE_TEST_SUITE_P(
    Gigabytes, ByteCountText,
    testing::Values(ByteCount{999'950'000, "1 GB"}, ByteCount{1'000'000'000, "1 GB"},
                    ByteCount{1'004'999'999, "1 GB"}, ByteCount{1'005'000'000, "1.01 GB"},
                    ByteCount{1'100'000'000, "1.1 GB"}, ByteCount{1'230'000'000, "1.23 GB"},
                    ByteCount{1'234'999'999, "1.23 GB"}, ByteCount{2'000'000'000, "2 GB"},
                    ByteCount{10'000'000'000, "10 GB"}, ByteCount{999'994'999'999, "999.99 GB"}));

INSTANTIATE_TEST_SUITE_P(
    Terabytes, ByteCountText,
    testing::Values(ByteCount{999'995'000'000, "1 TB"}, ByteCount{1'000'000'000'000, "1 TB"},
                    ByteCount{1'230'000'000'000, "1.23 TB"}, ByteCount{5'497'558'138'880, "5.5 TB"},
                    ByteCount{1'000'000'000'000'000, "1,000 TB"},
                    ByteCount{std::numeric_limits<std::int64_t>::max(), "9,223,372.04 TB"}));

INSTANTIATE_TEST_SUITE_P(
    NegativeCounts, ByteCountText,
    testing::Values(ByteCount{-1'500'000, "-1.5 MB"}, ByteCount{-2'000'000'000, "-2 GB"},
                    ByteCount{-999'500, "-1 MB"},
                    ByteCount{std::numeric_limits<std::int64_t>::min(), "-9,223,372.04 TB"}));

TEST(ByteCountText, neverShowsPlainBytes) {
    for (std::int64_t count = 1; count < 1'000; ++count) {
        EXPECT_TRUE(Fmt::bytes(count).ends_with(" KB")) << count << " bytes: " << Fmt::bytes(count);
    }
}

TEST(Ago, isADashForAMissingDate) {
    EXPECT_EQ(Fmt::ago(std::nullopt, now), "—");
    EXPECT_EQ(Fmt::ago(std::nullopt, now), "\xe2\x80\x94");
}

TEST(Ago, isShortAndRelative) {
    EXPECT_EQ(Fmt::ago(now - Seconds(92 * day), now), "3 mo. ago");
    EXPECT_EQ(Fmt::ago(now - Seconds(365 * day), now), "1 yr. ago");
    EXPECT_EQ(Fmt::ago(now - Seconds(14 * day), now), "2 wk. ago");
    EXPECT_EQ(Fmt::ago(now + Seconds(300), now), "in 5 min.");
}

TEST(MonthsSince, isZeroForAMissingDate) {
    EXPECT_EQ(Fmt::monthsSince(std::nullopt, now), 0);
}

TEST(MonthsSince, countsWholeMonthsOnly) {
    EXPECT_EQ(Fmt::monthsSince(now, now), 0);
    EXPECT_EQ(Fmt::monthsSince(now - Seconds(59 * day), now), 1);
    EXPECT_EQ(Fmt::monthsSince(now - Seconds(61 * day), now), 2);
    EXPECT_EQ(Fmt::monthsSince(now - Seconds(365 * day), now), 12);
}

struct Shortening {
    std::string_view path;
    std::string_view shortened;
};

class ShortPath : public testing::TestWithParam<Shortening> {};

TEST_P(ShortPath, hasATildeForTheCharactersOfHome) {
    EXPECT_EQ(Fmt::shortPath(FileUrl(GetParam().path), FileUrl("/home/someone")),
              GetParam().shortened);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ShortPath,
    testing::Values(Shortening{"/home/someone/Downloads/a.pdf", "~/Downloads/a.pdf"},
                    Shortening{"/home/someone", "~"},
                    Shortening{"/Applications/Tool.app", "/Applications/Tool.app"},
                    Shortening{"/home/someone2/a.pdf", "~2/a.pdf"},
                    Shortening{"/home/some", "/home/some"},
                    Shortening{"/media/home/someone/a", "/media/home/someone/a"},
                    Shortening{"/home/someone/\xff\n", "~/\xff\n"}));

}  // namespace
}  // namespace nookwise
