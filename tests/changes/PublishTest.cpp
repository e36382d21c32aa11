#include "platform/linux/OpenAt.h"
#include "platform/linux/Publish.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class Publish : public testing::Test {
  protected:
    Publish() : folder_(openPath(home.path().native(), O_PATH | O_DIRECTORY)) {}
    bool rename(const char* from, const char* to) const {
        return renameNoReplace(folder_.get(), from, folder_.get(), to);
    }

    const TemporaryFolder home;

  private:
    FileDescriptor folder_;
};

TEST_F(Publish, renamesFilesFoldersAndLinks) {
    home.write("file", "x");
    home.makeFolder("folder");
    fs::create_symlink("nowhere", home.path("link"));
    EXPECT_TRUE(rename("file", "file 2"));
    EXPECT_TRUE(rename("folder", "folder 2"));
    EXPECT_TRUE(rename("link", "link 2"));
    EXPECT_EQ(names(home.path()), "file 2 folder 2 link 2");
}

TEST_F(Publish, neverOverwritesAnything) {
    home.write("file", "x");
    home.makeFolder("folder");
    home.makeFolder("empty");
    home.write("taken", "y");
    fs::create_symlink("nowhere", home.path("link"));
    const auto before = snapshot(home.path());
    for (const auto* const from : {"file", "folder"})
        for (const auto* const to : {"taken", "empty", "link", "file", "folder"}) {
            EXPECT_FALSE(rename(from, to));
            EXPECT_EQ(errno, EEXIST);
        }
    EXPECT_EQ(snapshot(home.path()), before);
}

TEST_F(Publish, takesAnotherNameOfTheSameFileForTaken) {
    home.write("a", "x");
    fs::create_hard_link(home.path("a"), home.path("b"));
    EXPECT_FALSE(rename("a", "b"));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(names(home.path()), "a b");
}

TEST_F(Publish, tellsThatNothingIsThere) {
    EXPECT_FALSE(rename("missing", "other"));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(names(home.path()), "");
}

}  // namespace
}  // namespace nookwise
