#include "platform/linux/RegularFile.h"
#include "tests/platform_linux/FileTimes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(RegularFile, givesItsBeginningUpToTheLimit) {
    const TemporaryFolder folder;
    const std::string contents(200'000, 'x');
    const auto file = RegularFile::open(folder.write("a", contents + "y"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->beginning(5), "xxxxx");
    EXPECT_EQ(file->beginning(200'000), contents);
    EXPECT_EQ(file->beginning(1'000'000), contents + "y");
    EXPECT_EQ(file->beginning(0), "");
}

TEST(RegularFile, isNoPipeFolderDeviceOrMissingFile) {
    const TemporaryFolder folder;
    EXPECT_FALSE(RegularFile::open(folder.makePipe("pipe")));
    EXPECT_FALSE(RegularFile::open(folder.makeFolder("folder")));
    EXPECT_FALSE(RegularFile::open(folder.url("missing")));
    EXPECT_FALSE(RegularFile::open(FileUrl("/dev/null")));
    EXPECT_FALSE(RegularFile::open(FileUrl("/" + std::string(10'000, 'a'))));
    EXPECT_FALSE(RegularFile::open(FileUrl()));
}

TEST(RegularFile, isReadThroughALinkButNotThroughALoop) {
    const TemporaryFolder folder;
    folder.write("a", "text");
    std::filesystem::create_symlink("a", folder.path("link"));
    std::filesystem::create_symlink("loop", folder.path("loop"));
    EXPECT_EQ(readSmallFile(folder.url("link"), 100), "text");
    EXPECT_FALSE(readSmallFile(folder.url("loop"), 100));
}

TEST(RegularFile, doesNotLookUsedAfterReading) {
    const TemporaryFolder folder;
    const auto url = folder.write("a", "text");
    const Date old{Seconds{1e9}};
    ASSERT_TRUE(setTimes(url, old, old + Seconds{10}));
    EXPECT_EQ(readSmallFile(url, 100), "text");
    EXPECT_EQ(accessOf(url), old);
}

TEST(RegularFile, ofAnotherUserIsReadAllTheSame) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can make a file of another user";
    const TemporaryFolder folder;
    const auto url = folder.write("a", "text");
    const OrdinaryUser user;
    EXPECT_EQ(readSmallFile(url, 100), "text");
}

TEST(RegularFile, thatMayNotBeReadIsNone) {
    const TemporaryFolder folder;
    const auto url = folder.write("a", "text");
    ASSERT_EQ(::chmod(folder.path("a").c_str(), 0), 0);
    const OrdinaryUser user;
    EXPECT_FALSE(readSmallFile(url, 100));
}

TEST(SmallFile, isNoneBeyondTheLimit) {
    const TemporaryFolder folder;
    const auto url = folder.write("a", "12345");
    EXPECT_EQ(readSmallFile(url, 5), "12345");
    EXPECT_FALSE(readSmallFile(url, 4));
}

TEST(SmallFile, ofTerabytesWithoutBytesIsNone) {
    const TemporaryFolder folder;
    const auto url = folder.write("a", "");
    if (::truncate(folder.path("a").c_str(), off_t{5} << 40) != 0) {
        GTEST_SKIP() << "the file system holds no such file";
    }
    EXPECT_FALSE(readSmallFile(url, 100'000));
}

}  // namespace
}  // namespace nookwise
