#include "tests/scan/ScanFixture.h"

namespace nookwise {
namespace {

class Forgotten : public ScanFixture {
  protected:
    std::vector<SweepItem> pile() { return scan().piles.at(PileKind::forgotten); }
};

TEST_F(Forgotten, downloadsSayHowLongTheyWereLeftAlone) {
    world.files.addFile("/home/user/Downloads/a.bin",
                        {.allocated = 9, .modified = ago(day), .added = ago(200 * day)});
    world.metadata.setLastUsed("/home/user/Downloads/a.bin", ago(95 * day));
    EXPECT_EQ(pile(), (std::vector{SweepItem{FileItem{.url = FileUrl("/home/user/Downloads/a.bin"),
                                                      .size = 9,
                                                      .modified = ago(day),
                                                      .added = ago(200 * day),
                                                      .lastUsed = ago(95 * day)},
                                             "untouched since 3 mo. ago", true}}));
}

struct Dates {
    std::optional<Seconds> lastUsed;
    std::optional<Seconds> added;
    std::optional<Seconds> modified;
    bool listed;
};

class ForgottenAge : public Forgotten, public testing::WithParamInterface<Dates> {};

TEST_P(ForgottenAge, isThatOfLastUsedElseAddedElseModified) {
    FakeFile file;
    if (GetParam().added) file.added = ago(*GetParam().added);
    if (GetParam().modified) file.modified = ago(*GetParam().modified);
    world.files.addFile("/home/user/Downloads/a", file);
    if (GetParam().lastUsed)
        world.metadata.setLastUsed("/home/user/Downloads/a", ago(*GetParam().lastUsed));
    EXPECT_EQ(pile().size(), GetParam().listed ? 1u : 0u);
}

constexpr auto none = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Ages, ForgottenAge,
    testing::Values(Dates{91 * day, none, none, true}, Dates{89 * day, 365 * day, none, false},
                    Dates{90 * day, none, none, false},
                    Dates{Seconds(7'776'000), none, none, false},
                    Dates{Seconds(7'776'000.5), none, none, true},
                    Dates{Seconds(7'776'001), none, none, true}, Dates{91 * day, day, day, true},
                    Dates{none, 91 * day, day, true}, Dates{none, 90 * day, 200 * day, false},
                    Dates{none, none, 91 * day, true}, Dates{none, none, 90 * day, false},
                    Dates{none, none, none, false}, Dates{none, -1 * day, none, false}));

TEST_F(Forgotten, areFilesOfDownloadsOnlyAtAnyDepth) {
    for (const auto root : {desktop, documents, downloads}) {
        world.files.addFile(std::string(root) + "/deep/a", {.added = ago(100 * day)});
    }
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Downloads/deep/a"}));
}

TEST_F(Forgotten, areSortedLargestFirstAndStably) {
    world.files.addFile("/home/user/Downloads/a", {.allocated = 5, .added = ago(100 * day)});
    world.files.addFile("/home/user/Downloads/b", {.allocated = 7, .added = ago(91 * day)});
    world.files.addFile("/home/user/Downloads/c", {.allocated = 5, .added = ago(300 * day)});
    world.files.addFile("/home/user/Downloads/d", {.allocated = 5, .added = ago(92 * day)});
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Downloads/b", "/home/user/Downloads/a",
                                    "/home/user/Downloads/c", "/home/user/Downloads/d"}));
}

TEST_F(Forgotten, areNotRepeatedAmongLargeFiles) {
    world.files.addFile("/home/user/Downloads/a",
                        {.allocated = 600 * megabyte, .added = ago(100 * day)});
    const auto result = scan();
    EXPECT_EQ(result.piles.at(PileKind::forgotten).size(), 1u);
    EXPECT_TRUE(result.piles.at(PileKind::large).empty());
}

TEST_F(Forgotten, leaveLastUsedOutOfTheListOfAllFiles) {
    world.files.addFile("/home/user/Downloads/a");
    world.metadata.setLastUsed("/home/user/Downloads/a", ago(95 * day));
    const auto result = scan();
    EXPECT_EQ(result.files.at(0).lastUsed, std::nullopt);
    EXPECT_EQ(result.piles.at(PileKind::forgotten).at(0).file.lastUsed, ago(95 * day));
}

TEST_F(Forgotten, ofDatesBefore1970AndAfter2262AreHandled) {
    world.files.addFile("/home/user/Downloads/1960", {.added = Date{Seconds{-315'619'200}}});
    world.files.addFile("/home/user/Downloads/2300", {.added = Date{Seconds{1.04e10}}});
    world.files.addFile("/home/user/Downloads/never", {.added = distantPast});
    const auto items = pile();
    ASSERT_EQ(paths(items), (Paths{"/home/user/Downloads/1960", "/home/user/Downloads/never"}));
    EXPECT_EQ(items[0].reason, "untouched since 63 yr. ago");
}

}  // namespace
}  // namespace nookwise
