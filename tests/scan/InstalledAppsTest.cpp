#include "scan/InstalledApps.h"
#include "tests/support/FakePlatform.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class InstalledApps : public testing::Test {
  protected:
    InstalledAppNames names() {
        return installedAppNames(
            installedApplications(world.files, world.folders, world.workspace, {}));
    }

    FakePlatform world;
};

TEST(LettersOf, keepLettersOnlyInLowerCase) {
    EXPECT_EQ(letters("Blue Kite Setup 1.2"), "bluekitesetup");
    EXPECT_EQ(letters("123 _-."), "");
    EXPECT_EQ(letters("Ünïcødé-4"), "ünïcødé");
}

TEST_F(InstalledApps, areTheAppEntriesOfTheApplicationFolders) {
    world.files.addPackage("/Applications/Blue Kite.app");
    world.files.addPackage("/Applications/Utilities/Terminal 2.app");
    world.files.addPackage("/home/user/Applications/Own Tool.app");
    EXPECT_EQ(names(),
              (InstalledAppNames{
                  {"bluekite", "Blue Kite"}, {"owntool", "Own Tool"}, {"terminal", "Terminal 2"}}));
}

TEST_F(InstalledApps, needTheExtensionAppExactly) {
    world.files.addPackage("/Applications/Loud.APP");
    world.files.addPackage("/Applications/Other.bundle");
    world.files.addFile("/Applications/plain");
    world.files.addFolder("/Applications/Folder.app");
    world.files.addFile("/Applications/File.app");
    EXPECT_EQ(names(), (InstalledAppNames{{"file", "File"}, {"folder", "Folder"}}));
}

TEST_F(InstalledApps, lieDirectlyInTheFolders) {
    world.files.addPackage("/Applications/Suite/Inner Tool.app");
    EXPECT_TRUE(names().empty());
}

TEST_F(InstalledApps, ofALaterFolderCountOverThoseOfAnEarlierOne) {
    world.files.addPackage("/Applications/Blue Kite.app");
    world.files.addPackage("/Applications/Utilities/Blue-Kite.app");
    world.files.addPackage("/home/user/Applications/BlueKite 3.app");
    EXPECT_EQ(names(), (InstalledAppNames{{"bluekite", "BlueKite 3"}}));
    world.files.remove("/home/user/Applications/BlueKite 3.app");
    EXPECT_EQ(names(), (InstalledAppNames{{"bluekite", "Blue-Kite"}}));
}

TEST_F(InstalledApps, withFewerThanThreeLettersAreLeftOut) {
    world.files.addPackage("/Applications/Go.app");
    world.files.addPackage("/Applications/R 4.3.app");
    world.files.addPackage("/Applications/1Password 7.app");
    world.files.addPackage("/Applications/ö ä.app");
    world.files.addPackage("/Applications/Übe.app");
    world.files.addPackage("/Applications/123.app");
    EXPECT_EQ(names(), (InstalledAppNames{{"password", "1Password 7"}, {"übe", "Übe"}}));
}

TEST_F(InstalledApps, ofFoldersThatCannotBeReadAreNone) {
    world.files.addPackage("/Applications/Blue Kite.app");
    world.files.makeUnreadable("/Applications");
    world.files.addPackage("/home/user/Applications/Red Kite.app");
    EXPECT_EQ(names(), (InstalledAppNames{{"redkite", "Red Kite"}}));
}

TEST_F(InstalledApps, areAlsoThoseThatTheDesktopKnows) {
    world.workspace.installed = {{"Blue Kite", FileUrl("/usr/share/applications/blue.desktop")},
                                 {"Go", FileUrl("/usr/share/applications/go.desktop")}};
    EXPECT_EQ(names(), (InstalledAppNames{{"bluekite", "Blue Kite"}}));
}

TEST_F(InstalledApps, keepNamesThatAreNotUtf8) {
    world.files.addPackage("/Applications/Kite\xff.app");
    EXPECT_EQ(names(), (InstalledAppNames{{"kite", "Kite\xff"}}));
}

struct Matching {
    std::string_view installerLetters;
    /// Empty when no application matches.
    std::string_view application;
};

class ApplicationOfInstaller : public testing::TestWithParam<Matching> {
  protected:
    const InstalledAppNames apps{{"blue", "Blue"},
                                 {"bluekite", "Blue Kite"},
                                 {"bluekites", "Blue Kites"},
                                 {"bluekitez", "Z"},
                                 {"blued", "Blued"},
                                 {"red", "Red"},
                                 {"redkitesetup", "Long"},
                                 {"übe", "Übe"},
                                 {"zzz", "Zzz"}};
};

TEST_P(ApplicationOfInstaller, isTheOneWithTheLongestKeyThatBeginsTheInstallersLetters) {
    const auto* application = applicationOfInstaller(apps, GetParam().installerLetters);
    EXPECT_EQ(application == nullptr ? "" : *application, GetParam().application);
}

INSTANTIATE_TEST_SUITE_P(
    Installers, ApplicationOfInstaller,
    testing::Values(Matching{"bluekitesetup", "Blue Kites"}, Matching{"bluekitinstaller", "Blue"},
                    Matching{"bluekite", "Blue Kite"}, Matching{"bluekit", "Blue"},
                    Matching{"bluekitf", "Blue"}, Matching{"blu", ""}, Matching{"", ""},
                    Matching{"redkitesetu", "Red"}, Matching{"redkitesetup", "Long"},
                    Matching{"setupbluekite", ""}, Matching{"a", ""}, Matching{"zzzz", "Zzz"},
                    Matching{"übersetup", "Übe"}, Matching{"bluez", "Blue"}, Matching{"\xff", ""}));

TEST(ApplicationOfInstallerAmongNone, isNone) {
    EXPECT_EQ(applicationOfInstaller({}, "bluekite"), nullptr);
}

}  // namespace
}  // namespace nookwise
