#include "platform/linux/FileContents.h"
#include "platform/linux/OpenAt.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

class FileContents : public testing::Test {
  protected:
    bool copy(const std::string& from, const FileState& state) const {
        const FileDescriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
        const FileDescriptor target(
            ::open(home.path("copy").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
        const CopyWatch nobody;
        WatchedCopy unwatched{nobody};
        return copyContents(source.get(), target.get(), state, unwatched);
    }
    FileState state(const std::string& path) const {
        FileState state;
        EXPECT_TRUE(readState(AT_FDCWD, path.c_str(), state));
        return state;
    }
    std::string lengthAndHash(const char* name) const {
        const auto line = snapshot(home.path(name)).at("");
        const auto hash = line.find('#');
        return line.substr(line.rfind(' ', hash));
    }

    const TemporaryFolder home;
};

TEST_F(FileContents, keepsHolesAtBothEndsAndBetween) {
    const auto path = home.path("sparse");
    constexpr off_t size = 10'000'000;
    const FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    ASSERT_EQ(::ftruncate(file.get(), size), 0);
    ASSERT_EQ(::pwrite(file.get(), "one", 3, 1'000'000), 3);
    ASSERT_EQ(::pwrite(file.get(), "two", 3, 5'000'000), 3);
    ASSERT_TRUE(copy(path, state(path)));
    EXPECT_EQ(lengthAndHash("copy"), lengthAndHash("sparse"));
    EXPECT_LT(state(home.path("copy")).blocks * 512, 1'000'000);
}

TEST_F(FileContents, copiesAFileThatIsNothingButAHole) {
    const auto path = home.path("sparse");
    home.write("sparse", "");
    std::filesystem::resize_file(path, 5'000'000);
    ASSERT_TRUE(copy(path, state(path)));
    EXPECT_EQ(lengthAndHash("copy"), lengthAndHash("sparse"));
}

TEST_F(FileContents, refusesAFileThatHoldsMoreOrLessThanItsStateSays) {
    home.write("file", "0123456789");
    auto longer = state(home.path("file"));
    longer.size = 11;
    longer.blocks = 8;
    auto shorter = state(home.path("file"));
    shorter.size = 9;
    if (copy(home.path("file"), longer)) GTEST_SKIP() << "shared as a whole by the file system";
    EXPECT_EQ(errno, EBUSY);
    EXPECT_FALSE(copy(home.path("file"), shorter));
    EXPECT_EQ(errno, EBUSY);
}

TEST_F(FileContents, refusesWhatTheKernelMakesUpWhileItIsRead) {
    EXPECT_FALSE(copy("/proc/self/status", state("/proc/self/status")));
    EXPECT_EQ(errno, EBUSY);
}

}  // namespace
}  // namespace nookwise
