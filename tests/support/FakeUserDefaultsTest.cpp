#include "tests/support/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(FakeUserDefaults, giveBackWhatWasSet) {
    FakeUserDefaults defaults;
    EXPECT_EQ(defaults.boolean("a"), std::nullopt);
    defaults.setBoolean("a", false);
    defaults.setString("b", "text");
    EXPECT_EQ(defaults.boolean("a"), false);
    EXPECT_EQ(defaults.string("b"), "text");
}

TEST(FakeUserDefaults, readAValueOfAnotherTypeAsNone) {
    FakeUserDefaults defaults;
    defaults.setString("a", "true");
    EXPECT_EQ(defaults.boolean("a"), std::nullopt);
    defaults.setBoolean("a", true);
    EXPECT_EQ(defaults.string("a"), std::nullopt);
}

TEST(FakeUserDefaults, removeEveryKeyWithAPrefix) {
    FakeUserDefaults defaults;
    defaults.setBoolean("skip.a", true);
    defaults.setBoolean("skip.b", true);
    defaults.setBoolean("other", true);
    defaults.removeAllWithPrefix("skip.");
    EXPECT_EQ(defaults.boolean("skip.a"), std::nullopt);
    EXPECT_EQ(defaults.boolean("skip.b"), std::nullopt);
    EXPECT_EQ(defaults.boolean("other"), true);
}

}  // namespace
}  // namespace nookwise
