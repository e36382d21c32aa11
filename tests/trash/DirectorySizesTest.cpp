#include "platform/linux/DirectorySizes.h"
#include "platform/linux/DiskUsage.h"
#include "platform/linux/OpenAt.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/trash/TrashHome.h"

#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

using testing::ElementsAre;

const IsInTrash everything = [](const std::string&) { return true; };
const IsInTrash nothing = [](const std::string&) { return false; };

TEST(DirectorySizes, getALineForANewFolder) {
    EXPECT_EQ(withDirectorySize("", "a b\n", {.bytes = 4096, .described = 17}, everything),
              "4096 17 a%20b%0A\n");
    EXPECT_EQ(withDirectorySize("1 2 old\n", "new", {.bytes = 3, .described = 4}, everything),
              "1 2 old\n3 4 new\n");
}

TEST(DirectorySizes, haveOneLineAFolderHoweverItWasEscaped) {
    EXPECT_EQ(withDirectorySize("1 2 a%20(b)\n1 3 a%20%28b%29\n1 2 c\n", "a (b)",
                                {.bytes = 9, .described = 9}, everything),
              "1 2 c\n9 9 a%20%28b%29\n");
}

TEST(DirectorySizes, loseTheLineOfAFolderThatLeft) {
    EXPECT_EQ(withoutDirectorySize("1 2 a\n1 2 b\n1 2 c\n", "b", everything), "1 2 a\n1 2 c\n");
    EXPECT_EQ(withoutDirectorySize("1 2 b", "b", everything), "");
}

TEST(DirectorySizes, stayAsTheyAreWhereNothingIsForgotten) {
    const std::string text = "1 2 a\nnonsense";
    EXPECT_EQ(withoutDirectorySize(text, "b", nothing), text);
    EXPECT_EQ(withoutDirectorySize("", "b", nothing), "");
}

TEST(DirectorySizes, loseFoldersThatAreGone) {
    const IsInTrash onlyB = [](const std::string& name) { return name == "b c"; };
    EXPECT_EQ(withDirectorySize("1 2 a\n1 2 b%20c\n1 2 d\n", "new", {}, onlyB),
              "1 2 b%20c\n0 0 new\n");
}

TEST(DirectorySizes, loseLinesThatMakeNoSense) {
    for (const std::string line : {"",
                                   " ",
                                   "1",
                                   "1 2",
                                   "1 2 ",
                                   "a 2 name",
                                   "1 b name",
                                   "-1 2 name",
                                   "1 -2 name",
                                   "99999999999999999999 2 name",
                                   "1 2 name rest",
                                   "1  2 name",
                                   "1 2 ..%2Fname",
                                   "1 2 a/b",
                                   "1 2 %00",
                                   "1 2 %",
                                   "1 2 %2",
                                   " 1 2 name",
                                   "1,5 2 name",
                                   "0x1 2 name"})
        EXPECT_EQ(withDirectorySize(line + "\n1 2 kept\n" + line, "new", {}, everything),
                  "1 2 kept\n0 0 new\n")
            << line;
}

TEST(DirectorySizes, areLookedAtAFewLinesATimeAndAllInTheEnd) {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "1 2 folder" + std::to_string(i) + "\n";
    std::set<std::string> seen;
    std::size_t looks = 0;
    const IsInTrash isInTrash = [&](const std::string& name) {
        ++looks;
        seen.insert(name);
        return true;
    };
    for (int call = 0; call < 20; ++call) {
        looks = 0;
        text = withDirectorySize(text, "new", {}, isInTrash);
        EXPECT_LE(looks, 100U);
    }
    EXPECT_EQ(seen.size(), 1001U - 1U);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1001);
}

class DirectorySizesFile : public testing::Test {
  protected:
    DirectorySizesFile() {
        home.makeFolder("Trash/files/old");
        trash = FileDescriptor(::open(home.path("Trash").c_str(), O_PATH | O_CLOEXEC));
        files = FileDescriptor(::open(home.path("Trash/files").c_str(), O_PATH | O_CLOEXEC));
    }
    void record() { recordDirectorySize(trash.get(), files.get(), "new", {.bytes = 3}); }
    std::string text() const { return contentsOf(home.path("Trash/directorysizes")); }

    TemporaryFolder home;
    FileDescriptor trash;
    FileDescriptor files;
};

TEST_F(DirectorySizesFile, isMadeForItsOwnerAlone) {
    record();
    EXPECT_EQ(text(), "3 0 new\n");
    struct stat status {};
    ASSERT_EQ(::stat(home.path("Trash/directorysizes").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    EXPECT_THAT(namesIn(home.path("Trash")), ElementsAre("directorysizes", "files"));
}

TEST_F(DirectorySizesFile, keepsWhatOtherProgramsWroteOfFoldersThatAreThere) {
    home.write("Trash/directorysizes", "1 2 old\n1 2 gone\n1 2 torn");
    record();
    EXPECT_EQ(text(), "1 2 old\n3 0 new\n");
    forgetDirectorySize(trash.get(), files.get(), "old");
    EXPECT_EQ(text(), "");
}

TEST_F(DirectorySizesFile, isStartedAnewWhereItIsHuge) {
    home.write("Trash/directorysizes", "1 2 old\n");
    std::filesystem::resize_file(home.path("Trash/directorysizes"), std::uintmax_t{1} << 40U);
    record();
    EXPECT_EQ(text(), "3 0 new\n");
}

TEST_F(DirectorySizesFile, isReplacedWhereItIsALinkOrAPipe) {
    const auto other = home.write("other", "1 2 old\n");
    std::filesystem::create_symlink("../other", home.path("Trash/directorysizes"));
    record();
    EXPECT_EQ(text(), "3 0 new\n");
    EXPECT_EQ(contentsOf(home.path("other")), "1 2 old\n");
    std::filesystem::remove(home.path("Trash/directorysizes"));
    home.makePipe("Trash/directorysizes");
    record();
    EXPECT_EQ(text(), "3 0 new\n");
}

TEST_F(DirectorySizesFile, isLeftAloneWhereItIsAFolder) {
    home.makeFolder("Trash/directorysizes/inner");
    record();
    EXPECT_THAT(namesIn(home.path("Trash")), ElementsAre("directorysizes", "files"));
}

TEST_F(DirectorySizesFile, isNotWrittenWhereNothingIsForgotten) {
    forgetDirectorySize(trash.get(), files.get(), "old");
    EXPECT_THAT(namesIn(home.path("Trash")), ElementsAre("files"));
}

TEST(DiskUsage, isWhatTheSystemsOwnToolSays) {
    const TemporaryFolder home;
    home.write("folder/a", std::string(100'000, 'a'));
    home.write("folder/.hidden/b", "b");
    std::filesystem::create_hard_link(home.path("folder/a"), home.path("folder/.hidden/again"));
    std::filesystem::create_symlink(std::string(200, 'x'), home.path("folder/link"));
    home.makePipe("folder/pipe");
    const FileDescriptor folder(::open(home.path("folder").c_str(), O_RDONLY | O_CLOEXEC));
    const auto command = "du -s -B1 '" + home.path("folder") + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> tool(::popen(command.c_str(), "r"),
                                                               &::pclose);
    ASSERT_NE(tool, nullptr);
    long long told = 0;
    ASSERT_EQ(std::fscanf(tool.get(), "%lld", &told), 1);
    EXPECT_EQ(diskUsage(folder.get(), 1'000), told);
}

TEST(DiskUsage, countsNothingForWhatCannotBeRead) {
    EXPECT_EQ(diskUsage(-1, 1'000), 0);
}

TEST(DiskUsage, isNotSummedUpOverTooManyEntries) {
    const TemporaryFolder home;
    for (int i = 0; i < 10; ++i) home.write("inner/" + std::to_string(i), "x");
    const FileDescriptor folder(::open(home.path().c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_TRUE(diskUsage(folder.get(), 11));
    EXPECT_FALSE(diskUsage(folder.get(), 10));
}

}  // namespace
}  // namespace nookwise
