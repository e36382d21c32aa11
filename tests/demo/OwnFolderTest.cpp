#include "tests/support/TemporaryFolder.h"
#include "tools/demo/OwnFolder.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise::demo {
namespace {

namespace fs = std::filesystem;

constexpr auto mark = "cache/.made-by-nookwise-demo";

std::string contents(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

class OwnFolderOnDisk : public ::testing::Test {
  protected:
    Result<OwnFolder> claim() const { return OwnFolder::claim(root.url("cache")); }

    void makeAnewOnce() const {
        const auto own = claim();
        ASSERT_TRUE(own);
        ASSERT_TRUE(own.value().makeAnew("home"));
    }

    void expectRefusal() const {
        const auto own = claim();
        ASSERT_FALSE(own);
        EXPECT_EQ(own.error().code, std::errc::file_exists);
    }

    TemporaryFolder root;
};

TEST_F(OwnFolderOnDisk, isMadeWithTheFoldersAboveIt) {
    const auto own = OwnFolder::claim(FileUrl(root.path("a/b/cache")));
    ASSERT_TRUE(own);
    const auto home = own.value().makeAnew("home");
    ASSERT_TRUE(home);
    EXPECT_EQ(home.value().path(), root.path("a/b/cache/home"));
    EXPECT_TRUE(fs::is_empty(root.path("a/b/cache/home")));
}

TEST_F(OwnFolderOnDisk, aSecondMakingReplacesOnlyWhatItMade) {
    makeAnewOnce();
    root.write("cache/home/Desktop/note.txt", "ours");
    root.write("cache/beside.txt", "somebody's");
    root.write("outside.txt", "somebody's");
    makeAnewOnce();
    EXPECT_TRUE(fs::is_empty(root.path("cache/home")));
    EXPECT_EQ(contents(root.path("cache/beside.txt")), "somebody's");
    EXPECT_EQ(contents(root.path("outside.txt")), "somebody's");
}

TEST_F(OwnFolderOnDisk, removingNeverFollowsALinkOutOfIt) {
    root.write("outside/dear.txt", "dear");
    makeAnewOnce();
    fs::create_directory_symlink(root.path("outside"), root.path("cache/home/Documents"));
    fs::create_symlink(root.path("outside/dear.txt"), root.path("cache/home/dear.txt"));
    makeAnewOnce();
    EXPECT_TRUE(fs::is_empty(root.path("cache/home")));
    EXPECT_EQ(contents(root.path("outside/dear.txt")), "dear");
}

TEST_F(OwnFolderOnDisk, aLinkInTheHomesPlaceIsReplacedAndItsTargetKept) {
    root.write("outside/dear.txt", "dear");
    makeAnewOnce();
    fs::remove(root.path("cache/home"));
    fs::create_directory_symlink(root.path("outside"), root.path("cache/home"));
    makeAnewOnce();
    EXPECT_FALSE(fs::is_symlink(root.path("cache/home")));
    EXPECT_TRUE(fs::is_empty(root.path("cache/home")));
    EXPECT_EQ(contents(root.path("outside/dear.txt")), "dear");
}

TEST_F(OwnFolderOnDisk, removingWhatIsNotThereIsNoFailure) {
    const auto own = claim();
    ASSERT_TRUE(own);
    EXPECT_TRUE(own.value().remove("home"));
}

TEST_F(OwnFolderOnDisk, aFolderThatSomebodyElseMadeIsRefused) {
    root.write("cache/home/thesis.txt", "years of work");
    expectRefusal();
    EXPECT_EQ(contents(root.path("cache/home/thesis.txt")), "years of work");
}

TEST_F(OwnFolderOnDisk, aLinkToAFolderOfOursIsRefused) {
    makeAnewOnce();
    fs::rename(root.path("cache"), root.path("elsewhere"));
    fs::create_directory_symlink(root.path("elsewhere"), root.path("cache"));
    expectRefusal();
}

TEST_F(OwnFolderOnDisk, aFileInItsPlaceIsRefused) {
    root.write("cache", "a file");
    expectRefusal();
    EXPECT_EQ(contents(root.path("cache")), "a file");
}

TEST_F(OwnFolderOnDisk, aMarkWithOtherWordsIsNone) {
    makeAnewOnce();
    root.write(mark, contents(root.path(mark)) + "and more\n");
    expectRefusal();
}

TEST_F(OwnFolderOnDisk, anEarlierDemosMarkIsOne) {
    makeAnewOnce();
    root.write(
        mark, "nookwise-demo made this folder. It replaces the sample home in it at each start.\n");
    EXPECT_TRUE(claim());
}

TEST_F(OwnFolderOnDisk, aPipeForAMarkIsRefusedAtOnce) {
    root.makeFolder("cache");
    root.makePipe(mark);
    expectRefusal();
}

TEST_F(OwnFolderOnDisk, aLinkToAMarkIsNone) {
    makeAnewOnce();
    fs::rename(root.path(mark), root.path("mark"));
    fs::create_symlink(root.path("mark"), root.path(mark));
    expectRefusal();
}

TEST_F(OwnFolderOnDisk, isHeldByOneAtATime) {
    const auto first = claim();
    ASSERT_TRUE(first);
    const auto second = claim();
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().code, std::errc::device_or_resource_busy);
}

}  // namespace
}  // namespace nookwise::demo
