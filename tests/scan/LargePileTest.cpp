#include "tests/scan/ScanFixture.h"

#include <limits>

namespace nookwise {
namespace {

class Large : public ScanFixture {
  protected:
    std::vector<SweepItem> pile() { return scan().piles.at(PileKind::large); }
};

TEST_F(Large, filesAreThoseOf500MegabytesOrMore) {
    world.files.addFile("/home/user/Documents/a", {.allocated = 499'999'999});
    world.files.addFile("/home/user/Documents/b", {.allocated = 500'000'000});
    world.files.addFile("/home/user/Documents/c", {.allocated = 500'000'001});
    world.files.addFile("/home/user/Documents/d",
                        {.allocated = std::numeric_limits<std::int64_t>::max()});
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Documents/d", "/home/user/Documents/c",
                                    "/home/user/Documents/b"}));
}

TEST_F(Large, filesAreMeasuredOnDisk) {
    world.files.addFile("/home/user/Documents/sparse",
                        {.size = 5'497'558'138'880, .allocated = 4'096});
    EXPECT_TRUE(pile().empty());
}

TEST_F(Large, filesOfAllRootsAreListedUntickedWithTheirLastUse) {
    world.files.addFile("/home/user/Desktop/a", {.allocated = 500 * megabyte});
    world.files.addFile("/home/user/Documents/b", {.allocated = 700 * megabyte});
    world.files.addFile("/home/user/Downloads/c", {.allocated = 600 * megabyte, .added = ago(day)});
    world.metadata.setLastUsed("/home/user/Documents/b", ago(3 * day));
    const auto items = pile();
    ASSERT_EQ(paths(items),
              (Paths{"/home/user/Documents/b", "/home/user/Downloads/c", "/home/user/Desktop/a"}));
    for (const auto& item : items) EXPECT_FALSE(item.preselected);
    EXPECT_EQ(items[0].file.lastUsed, ago(3 * day));
    EXPECT_EQ(items[1].file.lastUsed, std::nullopt);
}

TEST_F(Large, filesOfEqualSizeKeepTheOrderOfTheWalk) {
    for (const auto* path : {"/home/user/Downloads/a", "/home/user/Desktop/c",
                             "/home/user/Desktop/b", "/home/user/Documents/d"}) {
        world.files.addFile(path, {.allocated = 500 * megabyte, .added = now});
    }
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Desktop/b", "/home/user/Desktop/c",
                                    "/home/user/Documents/d", "/home/user/Downloads/a"}));
}

struct Reason {
    std::optional<Seconds> lastUsed;
    std::optional<Seconds> modified;
    std::string_view text;
};

class LargeReason : public Large, public testing::WithParamInterface<Reason> {};

TEST_P(LargeReason, namesTheAgeBelowTwoMonthsAndTheMonthsFromThenOn) {
    FakeFile file{.allocated = 500 * megabyte};
    // The added date is not used here.
    file.added = ago(1'000 * day);
    if (GetParam().modified) file.modified = ago(*GetParam().modified);
    world.files.addFile("/home/user/Documents/a", file);
    if (GetParam().lastUsed)
        world.metadata.setLastUsed("/home/user/Documents/a", ago(*GetParam().lastUsed));
    const auto items = pile();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].reason, GetParam().text);
}

constexpr auto none = std::nullopt;

INSTANTIATE_TEST_SUITE_P(Reasons, LargeReason,
                         testing::Values(Reason{3 * day, none, "opened 3 days ago"},
                                         Reason{none, 14 * day, "opened 2 wk. ago"},
                                         Reason{3 * day, 400 * day, "opened 3 days ago"},
                                         Reason{59 * day, none, "opened 1 mo. ago"},
                                         Reason{62 * day, none, "not opened in 2 months"},
                                         Reason{400 * day, 3 * day, "not opened in 13 months"},
                                         Reason{none, 3'653 * day, "not opened in 120 months"},
                                         Reason{none, none, "opened —"},
                                         Reason{Seconds(-300), none, "opened in 5 min."}));

TEST_F(Large, filesOfFarAwayDatesHaveAReason) {
    world.files.addFile("/home/user/Documents/a",
                        {.allocated = 500 * megabyte, .modified = distantPast});
    world.files.addFile("/home/user/Documents/b",
                        {.allocated = 500 * megabyte, .modified = distantFuture});
    const auto items = pile();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_TRUE(items[0].reason.starts_with("not opened in ")) << items[0].reason;
    EXPECT_TRUE(items[1].reason.starts_with("opened in ")) << items[1].reason;
}

}  // namespace
}  // namespace nookwise
