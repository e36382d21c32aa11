#include "platform/linux/LinuxUserFolders.h"
#include "tests/support/TemporaryFolder.h"

#include <map>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class UserFolders : public ::testing::Test {
  protected:
    UserFolders() : variables_{{"HOME", std::string(home_.url().path())}} {}

    void writeUserDirs(std::string_view text) { home_.write(".config/user-dirs.dirs", text); }
    std::string homePath() const { return std::string(home_.url().path()); }

    TemporaryFolder home_;
    std::map<std::string, std::string> variables_;
    LinuxUserFolders folders_{[this](const char* name) {
        const auto entry = variables_.find(name);
        return entry == variables_.end() ? std::string() : entry->second;
    }};
};

TEST_F(UserFolders, haveEnglishNamesWhereTheDesktopNamesNone) {
    EXPECT_EQ(folders_.home(), home_.url());
    EXPECT_EQ(folders_.desktop(), home_.url("Desktop"));
    EXPECT_EQ(folders_.documents(), home_.url("Documents"));
    EXPECT_EQ(folders_.downloads(), home_.url("Downloads"));
}

TEST_F(UserFolders, areNamedByTheDesktop) {
    writeUserDirs(
        "# This file is written by xdg-user-dirs-update\n"
        "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
        "XDG_DOWNLOAD_DIR=\"/srv/T\xc3\xa9l\xc3\xa9"
        "chargements\"\n"
        "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente/Meine\"\n");
    EXPECT_EQ(folders_.desktop(), home_.url("Schreibtisch"));
    EXPECT_EQ(folders_.downloads(), FileUrl("/srv/T\xc3\xa9l\xc3\xa9"
                                            "chargements"));
    EXPECT_EQ(folders_.documents(), home_.url("Dokumente/Meine"));
}

struct LineCase {
    std::string_view line;
    /// Below the home folder, or absolute.
    std::string_view expected;
};

TEST_F(UserFolders, areReadFromLinesOfManyKinds) {
    constexpr LineCase cases[] = {
        {R"(XDG_DESKTOP_DIR="$HOME/A")", "A"},
        {R"(  XDG_DESKTOP_DIR = "$HOME/A"   )", "A"},
        {"\tXDG_DESKTOP_DIR\t=\t\"$HOME/A\" # mine", "A"},
        {"XDG_DESKTOP_DIR=\"$HOME/A\"\r", "A"},
        {R"(XDG_DESKTOP_DIR="$HOME/A/")", "A"},
        {R"(XDG_DESKTOP_DIR="$HOME//A/./B/../C")", "A/C"},
        {R"(XDG_DESKTOP_DIR="$HOME/ A ")", " A "},
        {R"(XDG_DESKTOP_DIR="$HOME/a \"b\" \$c \\d")", R"(a "b" $c \d)"},
        {"XDG_DESKTOP_DIR=\"$HOME/caf\xe9\"", "caf\xe9"},
        {R"(XDG_DESKTOP_DIR="/srv/desk")", "/srv/desk"},
        {"XDG_DESKTOP_DIR=\"$HOME/A\"\nXDG_DESKTOP_DIR=\"$HOME/B\"", "B"},
        {"XDG_DESKTOP_DIR=\"$HOME/A\"\nXDG_DESKTOP_DIR=\"junk", "A"},
        {R"(XDG_DESKTOP_DIR="$HOME")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOME/")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOME/.")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOME/A/..")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOME/..")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="/")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="A")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="./A")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="~/A")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOMELESS/A")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="${HOME}/A")", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOME/A)", "Desktop"},
        {R"(XDG_DESKTOP_DIR="$HOME/A\")", "Desktop"},
        {"XDG_DESKTOP_DIR=$HOME/A", "Desktop"},
        {"XDG_DESKTOP_DIR=", "Desktop"},
        {"XDG_DESKTOP_DIR", "Desktop"},
        {R"(#XDG_DESKTOP_DIR="$HOME/A")", "Desktop"},
        {R"(XDG_DESKTOP_DIRS="$HOME/A")", "Desktop"},
        {R"(xdg_desktop_dir="$HOME/A")", "Desktop"},
        {R"(XDG_DOWNLOAD_DIR="$HOME/A")", "Desktop"},
    };
    for (const auto& [line, expected] : cases) {
        writeUserDirs(std::string(line) + "\n");
        EXPECT_EQ(folders_.desktop(),
                  expected.starts_with('/') ? FileUrl(expected) : home_.url(expected))
            << line;
        writeUserDirs(line);
        EXPECT_EQ(folders_.desktop(),
                  expected.starts_with('/') ? FileUrl(expected) : home_.url(expected))
            << line;
    }
}

TEST_F(UserFolders, areNeverTheHomeFolderByItsFullName) {
    writeUserDirs("XDG_DESKTOP_DIR=\"" + homePath() + "\"\nXDG_DOWNLOAD_DIR=\"" + homePath() +
                  "/../\"\n");
    EXPECT_EQ(folders_.desktop(), home_.url("Desktop"));
    EXPECT_EQ(folders_.downloads(), home_.url("Downloads"));
}

TEST_F(UserFolders, areReadAnewEachTime) {
    writeUserDirs("XDG_DESKTOP_DIR=\"$HOME/A\"\n");
    EXPECT_EQ(folders_.desktop(), home_.url("A"));
    writeUserDirs("XDG_DESKTOP_DIR=\"$HOME/B\"\n");
    EXPECT_EQ(folders_.desktop(), home_.url("B"));
    variables_["XDG_CONFIG_HOME"] = home_.path("elsewhere");
    EXPECT_EQ(folders_.desktop(), home_.url("Desktop"));
    home_.write("elsewhere/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/C\"\n");
    EXPECT_EQ(folders_.desktop(), home_.url("C"));
}

TEST_F(UserFolders, haveEnglishNamesWhereTheSettingsAreNoText) {
    const std::string lists[] = {std::string(5000, '\0'), "\xff\xfe\xfd",
                                 std::string(100'000, '\\'),
                                 std::string("XDG_DESKTOP_DIR=\"$HOME/A\0B\"\n", 28),
                                 "XDG_DESKTOP_DIR=\"$HOME/A\"\n" + std::string(2'000'000, '#')};
    for (const auto& list : lists) {
        writeUserDirs(list);
        EXPECT_EQ(folders_.desktop(), home_.url("Desktop"));
    }
}

TEST_F(UserFolders, doNotWaitForAPipeInTheSettingsPlace) {
    home_.makeFolder(".config");
    home_.makePipe(".config/user-dirs.dirs");
    EXPECT_EQ(folders_.desktop(), home_.url("Desktop"));
}

TEST_F(UserFolders, holdApplicationsInThreePlaces) {
    EXPECT_EQ(folders_.applications(),
              (std::vector{FileUrl("/Applications"), FileUrl("/Applications/Utilities"),
                           home_.url("Applications")}));
}

TEST_F(UserFolders, keepTheApplicationsOwnFilesWithTheUsersData) {
    EXPECT_EQ(folders_.applicationSupport(), home_.url(".local/share/Nookwise"));
    EXPECT_FALSE(std::filesystem::exists(home_.path(".local")));
    variables_["XDG_DATA_HOME"] = "relative";
    EXPECT_EQ(folders_.applicationSupport(), home_.url(".local/share/Nookwise"));
    variables_["XDG_DATA_HOME"] = "/srv/data";
    EXPECT_EQ(folders_.applicationSupport(), FileUrl("/srv/data/Nookwise"));
}

}  // namespace
}  // namespace nookwise
