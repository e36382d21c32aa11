#include "platform/linux/LinuxWorkspace.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

std::string entryText(std::string_view name, std::string_view furtherLines = {}) {
    return "[Desktop Entry]\nType=Application\nExec=/bin/sh\nName=" + std::string(name) + "\n" +
           std::string(furtherLines);
}

class Workspace : public ::testing::Test {
  protected:
    std::vector<InstalledApplication> applications() const {
        return LinuxWorkspace({home_.url("user"), home_.url("system")}).applications({});
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& application : applications()) names.push_back(application.name);
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryFolder home_;
};

using Names = std::vector<std::string>;

TEST_F(Workspace, isEmptyWithoutFolders) {
    EXPECT_TRUE(applications().empty());
    EXPECT_TRUE(LinuxWorkspace({}).applications({}).empty());
}

TEST_F(Workspace, givesNameAndEntryInTheOrderOfTheEntries) {
    const auto paint = home_.write("system/paint.desktop", entryText("Paint"));
    const auto blue = home_.write("user/z.desktop", entryText("Blue Kite"));
    const auto writer = home_.write("system/office/writer.desktop", entryText("Writer"));
    const std::vector<InstalledApplication> expected{
        {"Writer", writer}, {"Paint", paint}, {"Blue Kite", blue}};
    EXPECT_EQ(applications(), expected);
}

TEST_F(Workspace, letsTheFirstFolderWin) {
    home_.write("user/paint.desktop", entryText("Paint of mine"));
    home_.write("system/paint.desktop", entryText("Paint"));
    EXPECT_EQ(names(), Names{"Paint of mine"});
}

TEST_F(Workspace, takesAnIdFromFoldersAndName) {
    home_.write("user/office/writer.desktop", entryText("Mine"));
    home_.write("system/office-writer.desktop", entryText("Theirs"));
    home_.write("system/a/b/c.desktop", entryText("Deep"));
    home_.write("user/a-b/c.desktop", entryText("Deep of mine"));
    home_.write("system/writer.desktop", entryText("Another"));
    EXPECT_EQ(names(), (Names{"Another", "Deep of mine", "Mine"}));
}

TEST_F(Workspace, hidesWhatTheFirstFolderHides) {
    home_.write("user/paint.desktop", "[Desktop Entry]\nHidden=true\n");
    home_.write("user/draw.desktop", entryText("Draw", "NoDisplay=true\n"));
    home_.write("system/paint.desktop", entryText("Paint"));
    home_.write("system/draw.desktop", entryText("Draw"));
    EXPECT_EQ(names(), Names());
}

TEST_F(Workspace, leavesOutWhatIsNotOffered) {
    home_.write("system/hidden.desktop", entryText("Hidden", "Hidden=true\n"));
    home_.write("system/undisplayed.desktop", entryText("Undisplayed", "NoDisplay=true\n"));
    home_.write("system/missing.desktop", entryText("Missing", "TryExec=/no/such/program\n"));
    home_.write("system/unknown.desktop",
                entryText("Unknown", "TryExec=nookwise-has-no-such-program\n"));
    home_.write("system/gone.desktop",
                "[Desktop Entry]\nType=Application\nExec=/no/such/program\nName=Gone\n");
    home_.write("system/link.desktop",
                "[Desktop Entry]\nType=Link\nURL=https://example.org\nName=Link\n");
    home_.write("system/folder.desktop", "[Desktop Entry]\nType=Directory\nName=Folder\n");
    home_.write("system/untyped.desktop", "[Desktop Entry]\nExec=/bin/sh\nName=Untyped\n");
    home_.write("system/nameless.desktop", "[Desktop Entry]\nType=Application\nExec=/bin/sh\n");
    home_.write("system/empty-name.desktop", entryText(""));
    home_.write("system/text.txt", entryText("Text"));
    home_.write("system/there.desktop",
                entryText("There", "TryExec=sh\nHidden=false\nNoDisplay=false\n"));
    home_.write("system/there2.desktop", entryText("There too", "TryExec=/bin/sh\n"));
    EXPECT_EQ(names(), (Names{"There", "There too"}));
}

TEST_F(Workspace, leavesOutWhatIsNoEntry) {
    home_.write("user/torn.desktop", entryText("Torn").substr(0, 20));
    home_.write("user/half.desktop", entryText("Half").substr(0, 40));
    home_.write("user/bytes.desktop", std::string(3000, '\xff'));
    home_.write("user/nothing.desktop", "");
    home_.write("user/zeros.desktop", std::string(3000, '\0'));
    home_.write("user/long.desktop", entryText("Long", std::string(2'000'000, '#')));
    home_.write("user/latin.desktop", entryText("caf\xe9"));
    home_.makePipe("user/pipe.desktop");
    home_.makeFolder("user/folder.desktop");
    std::filesystem::create_symlink("missing", home_.path("user/dangling.desktop"));
    std::filesystem::create_symlink("loop.desktop", home_.path("user/loop.desktop"));
    home_.write("user/good.desktop", entryText("Good"));
    EXPECT_EQ(names(), Names{"Good"});
}

TEST_F(Workspace, takesTheNextFoldersEntryForABrokenOne) {
    home_.write("user/paint.desktop", "<html>");
    home_.write("system/paint.desktop", entryText("Paint"));
    EXPECT_EQ(names(), Names{"Paint"});
}

TEST_F(Workspace, followsLinksToEntriesButNotToFolders) {
    // Flatpak exports links.
    home_.write("app/active/paint.desktop", entryText("Paint"));
    home_.makeFolder("user/deep");
    std::filesystem::create_symlink("../app/active/paint.desktop",
                                    home_.path("user/paint.desktop"));
    std::filesystem::create_symlink("../../user", home_.path("user/deep/loop"));
    EXPECT_EQ(applications(),
              (std::vector<InstalledApplication>{{"Paint", home_.url("user/paint.desktop")}}));
}

TEST_F(Workspace, goesOnPastAFolderThatMayNotBeRead) {
    home_.write("user/secret/a.desktop", entryText("Secret"));
    home_.write("user/z.desktop", entryText("Open"));
    ASSERT_EQ(::chmod(home_.path("user/secret").c_str(), 0), 0);
    {
        const OrdinaryUser user;
        EXPECT_EQ(names(), Names{"Open"});
    }
    ::chmod(home_.path("user/secret").c_str(), 0755);
}

TEST_F(Workspace, survivesFoldersDeeperThanAnyPath) {
    std::string folder = home_.path("user");
    std::filesystem::create_directories(folder);
    const auto start = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    for (int depth = 0; depth < 100; ++depth) {
        const std::string name(100, 'd');
        std::filesystem::create_directory(name);
        std::filesystem::current_path(name);
    }
    std::filesystem::current_path(start);
    home_.write("user/z.desktop", entryText("Open"));
    EXPECT_EQ(names(), Names{"Open"});
}

TEST(DesktopEntryFolders, areTheUsersTheSystemsAndTheExports) {
    BaseFolders base;
    base.dataHome = FileUrl("/home/ada/.local/share");
    base.dataFolders = {FileUrl("/usr/local/share"), FileUrl("/usr/share")};
    EXPECT_EQ(
        desktopEntryFolders(base),
        (std::vector{FileUrl("/home/ada/.local/share/applications"),
                     FileUrl("/usr/local/share/applications"), FileUrl("/usr/share/applications"),
                     FileUrl("/home/ada/.local/share/flatpak/exports/share/applications"),
                     FileUrl("/var/lib/flatpak/exports/share/applications"),
                     FileUrl("/var/lib/snapd/desktop/applications")}));
}

TEST(DesktopEntryFolders, areNamedOnceWhereTheEnvironmentNamesThemToo) {
    BaseFolders base;
    base.dataHome = FileUrl("/home/ada/.local/share");
    base.dataFolders = {FileUrl("/var/lib/snapd/desktop"), FileUrl("/usr/share"),
                        FileUrl("/usr/share")};
    EXPECT_EQ(desktopEntryFolders(base),
              (std::vector{FileUrl("/home/ada/.local/share/applications"),
                           FileUrl("/var/lib/snapd/desktop/applications"),
                           FileUrl("/usr/share/applications"),
                           FileUrl("/home/ada/.local/share/flatpak/exports/share/applications"),
                           FileUrl("/var/lib/flatpak/exports/share/applications")}));
}

}  // namespace
}  // namespace nookwise
