#include "model/AppInfo.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(AppInfo, isEqualAndHashedOverBothFields) {
    const std::hash<AppInfo> hash;
    const AppInfo app{FileUrl("/Applications/Blue Kite.app"), Date{Seconds{5}}};
    const AppInfo same{FileUrl("/Applications/Blue Kite.app"), Date{Seconds{5}}};
    const AppInfo otherUrl{FileUrl("/Applications/Red Kite.app"), Date{Seconds{5}}};
    const AppInfo otherDate{FileUrl("/Applications/Blue Kite.app"), Date{Seconds{6}}};
    const AppInfo neverUsed{FileUrl("/Applications/Blue Kite.app"), std::nullopt};
    EXPECT_EQ(app, same);
    EXPECT_EQ(hash(app), hash(same));
    for (const auto& other : {otherUrl, otherDate, neverUsed}) {
        EXPECT_NE(app, other);
        EXPECT_NE(hash(app), hash(other));
    }
}

TEST(AppInfo, neverUsedIsNotUsedAtTheStartOf1970) {
    const AppInfo never{FileUrl("/a"), std::nullopt};
    const AppInfo then{FileUrl("/a"), Date{Seconds{0}}};
    EXPECT_NE(never, then);
    EXPECT_NE(std::hash<AppInfo>{}(never), std::hash<AppInfo>{}(then));
}

}  // namespace
}  // namespace nookwise
