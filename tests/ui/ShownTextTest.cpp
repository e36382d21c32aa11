#include "ui/bridge/ShownText.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(ShownName, isTheNameWhereItIsUtf8) {
    EXPECT_EQ(shownName("Fernhill – raw scans.zip"), QStringLiteral("Fernhill – raw scans.zip"));
    EXPECT_EQ(shownName("снимок экрана.png"), QStringLiteral("снимок экрана.png"));
}

TEST(ShownName, replacesBytesThatAreNotUtf8) {
    EXPECT_EQ(shownName("bad\xff\xfename"), QStringLiteral("bad\uFFFD\uFFFDname"));
    EXPECT_EQ(shownName("\xc3"), QStringLiteral("\uFFFD"));
}

TEST(ShownName, staysOnOneLineAndInOneDirection) {
    struct Case {
        const char* what;
        std::string name;
    };
    const Case cases[] = {
        {"newline", "a\nb"},
        {"tab", "a\tb"},
        {"escape",
         "a\x1b"
         "b"},
        {"delete",
         "a\x7f"
         "b"},
        {"line separator", "a\u2028b"},
        {"paragraph separator", "a\u2029b"},
        {"right-to-left override", "a\u202Eb"},
        {"isolate", "a\u2066b"},
        {"mark", "a\u200Fb"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(shownName(each.name), QStringLiteral("a\uFFFDb")) << each.what;
    }
}

TEST(ShownName, keepsMarkupAsItIsWritten) {
    EXPECT_EQ(shownName("<b>&amp;</b>"), QStringLiteral("<b>&amp;</b>"));
}

TEST(ShownName, keepsWhatJoinsCharacters) {
    EXPECT_EQ(shownName("👩\u200D🌾.png"), QStringLiteral("👩\u200D🌾.png"));
}

TEST(ShownCount, groupsThousandsWhateverTheLocale) {
    EXPECT_EQ(shownCount(0), QStringLiteral("0"));
    EXPECT_EQ(shownCount(999), QStringLiteral("999"));
    EXPECT_EQ(shownCount(1284), QStringLiteral("1,284"));
    EXPECT_EQ(shownCount(1234567), QStringLiteral("1,234,567"));
}

TEST(ShownFiles, knowsOneFromMany) {
    EXPECT_EQ(shownFiles(0), QStringLiteral("0 files"));
    EXPECT_EQ(shownFiles(1), QStringLiteral("1 file"));
    EXPECT_EQ(shownFiles(4812), QStringLiteral("4,812 files"));
}

TEST(Folder, isShownFromTheHomeFolder) {
    const FileUrl home("/home/user");
    EXPECT_EQ(shownFolderOf(FileUrl("/home/user/Downloads/a.zip"), home),
              QStringLiteral("~/Downloads"));
    EXPECT_EQ(shownFolderOf(FileUrl("/home/user/a.zip"), home), QStringLiteral("~"));
    EXPECT_EQ(shownFolderOf(FileUrl("/mnt/disk/a.zip"), home), QStringLiteral("/mnt/disk"));
}

TEST(Folder, isSpokenFolderByFolder) {
    const FileUrl home("/home/user");
    EXPECT_EQ(spokenFolderOf(FileUrl("/home/user/Downloads/Reading/a.pdf"), home),
              QStringLiteral("Downloads, Reading"));
    EXPECT_EQ(spokenFolderOf(FileUrl("/home/user/a.pdf"), home), QStringLiteral("Home"));
    EXPECT_EQ(spokenFolderOf(FileUrl("/mnt/disk/a.pdf"), home), QStringLiteral("mnt, disk"));
}

TEST(Folder, besideTheHomeFolderIsSpokenInFull) {
    EXPECT_EQ(spokenFolderOf(FileUrl("/home/user2/a.pdf"), FileUrl("/home/user")),
              QStringLiteral("home, user2"));
}

}  // namespace
}  // namespace nookwise
