#include "platform/linux/NewFolder.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <climits>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

mode_t permissions(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & ALLPERMS : 0;
}

class Mask {
  public:
    explicit Mask(mode_t mask) : before_(::umask(mask)) {}
    ~Mask() { ::umask(before_); }

  private:
    mode_t before_;
};

TEST(NewFolder, makesTheFoldersAboveItForWhomTheSettingsLet) {
    const TemporaryFolder home;
    const Mask mask(0027);
    ASSERT_TRUE(makeFolder(home.url("a/b/c"), FolderAccess::usual));
    EXPECT_EQ(permissions(home.path("a")), 0750U);
    EXPECT_EQ(permissions(home.path("a/b/c")), 0750U);
}

TEST(NewFolder, closesOnlyTheLastToOthers) {
    const TemporaryFolder home;
    const Mask mask(0022);
    ASSERT_TRUE(makeFolder(home.url("a/b"), FolderAccess::ownerOnly));
    EXPECT_EQ(permissions(home.path("a")), 0755U);
    EXPECT_EQ(permissions(home.path("a/b")), 0700U);
}

TEST(NewFolder, leavesAFolderThatIsThereAsItIs) {
    const TemporaryFolder home;
    home.write("a/file", "x");
    ASSERT_EQ(::chmod(home.path("a").c_str(), 0711), 0);
    EXPECT_TRUE(makeFolder(home.url("a"), FolderAccess::ownerOnly));
    EXPECT_EQ(permissions(home.path("a")), 0711U);
    EXPECT_EQ(names(home.path("a")), "file");
}

TEST(NewFolder, takesALinkToAFolderForAFolder) {
    const TemporaryFolder home;
    home.makeFolder("real");
    fs::create_directory_symlink("real", home.path("link"));
    EXPECT_TRUE(makeFolder(home.url("link"), FolderAccess::usual));
    EXPECT_TRUE(makeFolder(home.url("link/below/further"), FolderAccess::usual));
    EXPECT_EQ(names(home.path("real/below")), "further");
}

TEST(NewFolder, failsWhereSomethingElseIs) {
    const TemporaryFolder home;
    home.write("file", "x");
    fs::create_symlink("nowhere", home.path("dangling"));
    const auto overFile = makeFolder(home.url("file"), FolderAccess::usual);
    ASSERT_FALSE(overFile);
    EXPECT_EQ(overFile.error().code, std::errc::not_a_directory);
    EXPECT_FALSE(makeFolder(home.url("file/below"), FolderAccess::usual));
    const auto overLink = makeFolder(home.url("dangling"), FolderAccess::usual);
    ASSERT_FALSE(overLink);
    EXPECT_EQ(overLink.error().code, std::errc::file_exists);
    EXPECT_EQ(names(home.path()), "dangling file");
}

TEST(NewFolder, failsWhereItMayNotWriteAndWithoutAName) {
    const TemporaryFolder home;
    fs::permissions(home.path(), fs::perms(0555));
    const OrdinaryUser user;
    const auto made = makeFolder(home.url("a/b"), FolderAccess::usual);
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().code, std::errc::permission_denied);
    EXPECT_EQ(made.error().url, home.url("a/b"));
    EXPECT_FALSE(makeFolder(FileUrl(), FolderAccess::usual));
    EXPECT_TRUE(makeFolder(FileUrl("/"), FolderAccess::usual));
}

TEST(NewFolder, worksBeyondTheLongestPath) {
    const TemporaryFolder home;
    std::string relative = "a";
    while (relative.size() < 2 * PATH_MAX) relative += "/" + std::string(100, 'd');
    EXPECT_TRUE(makeFolder(home.url(relative), FolderAccess::usual));
    EXPECT_TRUE(makeFolder(home.url(relative), FolderAccess::usual));
}

}  // namespace
}  // namespace nookwise
