#include "platform/linux/NewFile.h"
#include "platform/linux/OpenAt.h"
#include "tests/trash/TrashHome.h"

#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

class NewFile : public testing::Test {
  protected:
    TemporaryFolder home;
    FileDescriptor folder{::open(home.path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)};
};

TEST_F(NewFile, isWholeAndItsOwnersAlone) {
    const auto usual = ::umask(0);
    const bool written = writeNewFile(folder.get(), "file", "bytes");
    ::umask(usual);
    ASSERT_TRUE(written);
    EXPECT_EQ(contentsOf(home.path("file")), "bytes");
    struct stat status {};
    ASSERT_EQ(::stat(home.path("file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    EXPECT_FALSE(isUnfinishedFile(folder.get(), "file"));
}

TEST_F(NewFile, takesNoNameThatIsTaken) {
    home.write("file", "old");
    std::filesystem::create_symlink("nowhere", home.path("link"));
    for (const auto* name : {"file", "link"}) {
        EXPECT_FALSE(writeNewFile(folder.get(), name, "new"));
        EXPECT_EQ(errno, EEXIST);
    }
    EXPECT_EQ(contentsOf(home.path("file")), "old");
    EXPECT_FALSE(isThere(home.url("nowhere")));
}

TEST_F(NewFile, isUnfinishedWhileItIsMarkedSo) {
    home.write("file", "");
    EXPECT_FALSE(isUnfinishedFile(folder.get(), "file"));
    ::chmod(home.path("file").c_str(), 01600);
    EXPECT_TRUE(isUnfinishedFile(folder.get(), "file"));
    std::filesystem::create_symlink("file", home.path("link"));
    EXPECT_FALSE(isUnfinishedFile(folder.get(), "link"));
    EXPECT_FALSE(isUnfinishedFile(folder.get(), "missing"));
}

}  // namespace
}  // namespace nookwise
