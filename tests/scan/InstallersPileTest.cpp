#include "tests/scan/ScanFixture.h"

namespace nookwise {
namespace {

class Installers : public ScanFixture {
  protected:
    Installers() { world.files.addPackage("/Applications/Blue Kite.app"); }

    std::vector<SweepItem> pile() { return scan().piles.at(PileKind::installers); }
};

TEST_F(Installers, ofInstalledApplicationsSayWhichOneIsInstalled) {
    world.files.addFile("/home/user/Downloads/Blue Kite Setup 1.2.dmg",
                        {.allocated = 5, .added = ago(20 * day)});
    EXPECT_EQ(pile(), (std::vector{SweepItem{
                          FileItem{.url = FileUrl("/home/user/Downloads/Blue Kite Setup 1.2.dmg"),
                                   .size = 5,
                                   .added = ago(20 * day)},
                          "Blue Kite is installed", true}}));
}

TEST_F(Installers, ofOtherApplicationsAreNotListed) {
    world.files.addFile("/home/user/Downloads/Red Kite.dmg");
    world.files.addFile("/home/user/Downloads/Setup Blue Kite.dmg");
    world.files.addFile("/home/user/Downloads/Blue.dmg");
    EXPECT_TRUE(pile().empty());
}

TEST_F(Installers, ofApplicationsWithShortNamesNeverMatch) {
    world.files.addPackage("/Applications/Go.app");
    world.files.addFile("/home/user/Downloads/Go 1.22.pkg");
    EXPECT_TRUE(pile().empty());
}

TEST_F(Installers, nameTheApplicationWithTheLongestKey) {
    world.files.addPackage("/Applications/Blue.app");
    world.files.addPackage("/Applications/Blue Kite Pro.app");
    world.files.addFile("/home/user/Downloads/bluekitepro-3.dmg");
    world.files.addFile("/home/user/Downloads/bluekiteprx.dmg");
    world.files.addFile("/home/user/Downloads/blueberry.dmg");
    const auto items = pile();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].reason, "Blue is installed");
    EXPECT_EQ(items[1].reason, "Blue Kite Pro is installed");
    EXPECT_EQ(items[2].reason, "Blue Kite is installed");
}

class InstallerExtension : public Installers,
                           public testing::WithParamInterface<std::pair<const char*, bool>> {};

TEST_P(InstallerExtension, isComparedInLowerCase) {
    const auto [ext, isInstaller] = GetParam();
    world.files.addFile(std::string("/home/user/Downloads/Blue Kite.") + ext);
    EXPECT_EQ(pile().size(), isInstaller ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Extensions, InstallerExtension,
                         testing::Values(std::pair("dmg", true), std::pair("DMG", true),
                                         std::pair("pkg", true), std::pair("mpkg", true),
                                         std::pair("Xip", true), std::pair("iso", false),
                                         std::pair("zip", false), std::pair("app", false),
                                         std::pair("", false)));

TEST_F(Installers, lieAnywhereUnderDownloadsOrDesktopButNotUnderDocuments) {
    world.files.addFile("/home/user/Desktop/deep/Blue Kite.dmg");
    world.files.addFile("/home/user/Documents/Blue Kite.dmg");
    world.files.addFile("/home/user/Downloads/deep/er/Blue Kite.dmg");
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Downloads/deep/er/Blue Kite.dmg",
                                    "/home/user/Desktop/deep/Blue Kite.dmg"}));
}

TEST_F(Installers, areSortedLargestFirstWithDownloadsBeforeDesktop) {
    world.files.addFile("/home/user/Desktop/Blue Kite 1.dmg", {.allocated = 10});
    world.files.addFile("/home/user/Desktop/Blue Kite 2.dmg", {.allocated = 30});
    world.files.addFile("/home/user/Downloads/Blue Kite 3.dmg", {.allocated = 10});
    world.files.addFile("/home/user/Downloads/Blue Kite 4.dmg", {.allocated = 20});
    world.files.addFile("/home/user/Downloads/Blue Kite 5.dmg", {.allocated = 10});
    EXPECT_EQ(paths(pile()),
              (Paths{"/home/user/Desktop/Blue Kite 2.dmg", "/home/user/Downloads/Blue Kite 4.dmg",
                     "/home/user/Downloads/Blue Kite 3.dmg", "/home/user/Downloads/Blue Kite 5.dmg",
                     "/home/user/Desktop/Blue Kite 1.dmg"}));
}

struct Grace {
    std::optional<Seconds> added;
    std::optional<Seconds> modified;
    bool ticked;
};

class InstallerGrace : public Installers, public testing::WithParamInterface<Grace> {};

TEST_P(InstallerGrace, ofFourteenDaysLeavesItUnticked) {
    FakeFile file;
    if (GetParam().added) file.added = ago(*GetParam().added);
    if (GetParam().modified) file.modified = ago(*GetParam().modified);
    world.files.addFile("/home/user/Downloads/Blue Kite.dmg", file);
    const auto items = pile();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].preselected, GetParam().ticked);
}

constexpr auto none = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Dates, InstallerGrace,
    testing::Values(Grace{10 * day, none, false}, Grace{15 * day, none, true},
                    Grace{14 * day, none, false}, Grace{Seconds(1'209'600), none, false},
                    Grace{Seconds(1'209'601), none, true}, Grace{Seconds(1'209'600.5), none, true},
                    Grace{none, 15 * day, true}, Grace{none, 14 * day, false},
                    Grace{10 * day, 400 * day, false}, Grace{15 * day, 1 * day, true},
                    Grace{none, none, false}, Grace{-1 * day, none, false}));

TEST_F(Installers, mayAlsoBeForgottenOrLarge) {
    world.files.addFile("/home/user/Downloads/Blue Kite 1.dmg",
                        {.allocated = 5, .added = ago(91 * day)});
    world.files.addFile("/home/user/Downloads/Blue Kite 2.dmg",
                        {.allocated = 500 * megabyte, .added = ago(day)});
    const auto result = scan();
    EXPECT_EQ(result.piles.at(PileKind::installers).size(), 2u);
    EXPECT_EQ(paths(result.piles.at(PileKind::forgotten)),
              (Paths{"/home/user/Downloads/Blue Kite 1.dmg"}));
    EXPECT_EQ(paths(result.piles.at(PileKind::large)),
              (Paths{"/home/user/Downloads/Blue Kite 2.dmg"}));
}

}  // namespace
}  // namespace nookwise
