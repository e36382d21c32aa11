#include "platform/linux/RemoveTree.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class RemoveTree : public testing::Test {
  protected:
    RemoveTree() : folder_(openPath(home.path().native(), O_PATH | O_DIRECTORY)) {}
    bool remove(const char* name) const { return removeTree({folder_.get(), name}); }

    const TemporaryFolder home;

  private:
    FileDescriptor folder_;
};

TEST_F(RemoveTree, removesFilesFoldersLinksAndPipes) {
    home.write("folder/a/b/c", "x");
    home.makePipe("folder/pipe");
    home.makeFolder("folder/empty");
    home.write("file", "x");
    EXPECT_TRUE(remove("folder"));
    EXPECT_TRUE(remove("file"));
    EXPECT_EQ(names(home.path()), "");
}

TEST_F(RemoveTree, findsNothingToDoWhereNothingIs) {
    EXPECT_TRUE(remove("missing"));
}

TEST_F(RemoveTree, followsNoLink) {
    home.write("elsewhere/file", "x");
    home.makeFolder("folder");
    fs::create_directory_symlink(home.path("elsewhere"), home.path("folder/link"));
    fs::create_directory_symlink(home.path("elsewhere"), home.path("link"));
    EXPECT_TRUE(remove("folder"));
    EXPECT_TRUE(remove("link"));
    EXPECT_EQ(names(home.path()), "elsewhere");
    EXPECT_EQ(names(home.path("elsewhere")), "file");
}

TEST_F(RemoveTree, opensUpWhatItsOwnerClosed) {
    home.write("folder/read only/file", "x");
    home.write("folder/closed/file", "x");
    fs::permissions(home.path(), fs::perms::all);
    if (::geteuid() == 0) {
        for (const auto& entry : fs::recursive_directory_iterator(home.path()))
            ASSERT_EQ(::lchown(entry.path().c_str(), 65534, 65534), 0);
    }
    fs::permissions(home.path("folder/read only"), fs::perms(0555));
    fs::permissions(home.path("folder/closed"), fs::perms::none);
    fs::permissions(home.path("folder"), fs::perms(0500));
    const OrdinaryUser user;
    EXPECT_TRUE(remove("folder"));
    EXPECT_EQ(names(home.path()), "");
}

TEST_F(RemoveTree, tellsWhenSomethingIsLeft) {
    home.write("folder/file", "x");
    fs::permissions(home.path(), fs::perms(0555));
    const OrdinaryUser user;
    EXPECT_FALSE(remove("folder"));
    EXPECT_EQ(names(home.path()), "folder");
}

}  // namespace
}  // namespace nookwise
