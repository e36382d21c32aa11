#include "ui/bridge/ReplacedRows.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

ReplacedRows replaced(const std::string& before, const std::string& after) {
    return replacedRows(std::vector<char>(before.begin(), before.end()),
                        std::vector<char>(after.begin(), after.end()));
}

TEST(ReplacedRowsOf, equalListsAreNone) {
    EXPECT_EQ(replaced("", ""), ReplacedRows());
    EXPECT_EQ(replaced("abc", "abc"), (ReplacedRows{3, 0, 0}));
}

TEST(ReplacedRowsOf, rowsThatWentAreOnlyThese) {
    EXPECT_EQ(replaced("abcde", "abe"), (ReplacedRows{2, 2, 0}));
    EXPECT_EQ(replaced("abc", "bc"), (ReplacedRows{0, 1, 0}));
    EXPECT_EQ(replaced("abc", "ab"), (ReplacedRows{2, 1, 0}));
    EXPECT_EQ(replaced("abc", ""), (ReplacedRows{0, 3, 0}));
}

TEST(ReplacedRowsOf, rowsThatCameAreOnlyThese) {
    EXPECT_EQ(replaced("bc", "abc"), (ReplacedRows{0, 0, 1}));
    EXPECT_EQ(replaced("ac", "abc"), (ReplacedRows{1, 0, 1}));
    EXPECT_EQ(replaced("", "abc"), (ReplacedRows{0, 0, 3}));
}

TEST(ReplacedRowsOf, rowsThatChangedGiveWayToOthers) {
    EXPECT_EQ(replaced("abcd", "axyd"), (ReplacedRows{1, 2, 2}));
    EXPECT_EQ(replaced("abcd", "axd"), (ReplacedRows{1, 2, 1}));
}

TEST(ReplacedRowsOf, equalRowsBesideEachOtherAreCountedOnce) {
    EXPECT_EQ(replaced("aa", "aaa"), (ReplacedRows{2, 0, 1}));
    EXPECT_EQ(replaced("aaa", "a"), (ReplacedRows{1, 2, 0}));
}

}  // namespace
}  // namespace nookwise
