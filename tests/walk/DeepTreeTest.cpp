#include "platform/linux/OpenAt.h"
#include "scan/DuplicateFinder.h"
#include "scan/Walk.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/walk/Walked.h"

#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// A chain of folders far longer than PATH_MAX, with one file at its end. Removed again by its own
/// means, because most tools cannot reach that deep.
class Chain {
  public:
    Chain(const std::filesystem::path& top, int levels, std::string_view contents)
        : top_(top), levels_(levels) {
        FileDescriptor at(::open(top.c_str(), O_RDONLY | O_DIRECTORY));
        for (int i = 0; i < levels; ++i) {
            if (::mkdirat(at.get(), name, 0700) != 0) break;
            at = FileDescriptor(::openat(at.get(), name, O_RDONLY | O_DIRECTORY));
        }
        const FileDescriptor file(::openat(at.get(), "bottom.pdf", O_CREAT | O_WRONLY, 0600));
        isMade_ = ::write(file.get(), contents.data(), contents.size()) ==
                  static_cast<ssize_t>(contents.size());
    }

    ~Chain() {
        // Each round moves the rest of the chain up to the top, so that no path grows.
        const FileDescriptor top(::open(top_.c_str(), O_RDONLY | O_DIRECTORY));
        for (int i = 0; i < levels_; ++i) {
            const FileDescriptor first(::openat(top.get(), name, O_RDONLY | O_DIRECTORY));
            if (::renameat(first.get(), name, top.get(), "rest") != 0) break;
            ::unlinkat(top.get(), name, AT_REMOVEDIR);
            ::renameat(top.get(), "rest", top.get(), name);
        }
    }

    bool isMade() const { return isMade_; }
    std::string relativePath() const {
        std::string path;
        for (int i = 0; i < levels_; ++i) path.append(name).append("/");
        return path + "bottom.pdf";
    }

  private:
    static constexpr const char* name = "level";
    std::filesystem::path top_;
    int levels_;
    bool isMade_ = false;
};

TEST(DeepTree, aFileTwoThousandFoldersDownIsFoundOpenedAndExamined) {
    const TemporaryFolder home;
    const Chain chain(home.path(), 2000, "deep");
    ASSERT_TRUE(chain.isMade());
    const auto paths = walkedPaths(home.url());
    ASSERT_THAT(paths, ::testing::ElementsAre(chain.relativePath()));

    const LinuxFileManager files;
    const auto url = home.url().append(paths.front());
    ASSERT_GT(url.path().size(), 4096U * 2);
    EXPECT_EQ(files.attributes(url).value().fileSize, 4);
    auto opened = files.open(url);
    ASSERT_TRUE(opened);
    std::vector<std::byte> buffer(100);
    EXPECT_EQ(opened.value()->read(buffer).value(), 4U);
}

TEST(DeepTree, aCopyAsDeepIsFound) {
    const TemporaryFolder home;
    const std::string contents(100'000, 'c');
    const Chain chain(home.path(), 1000, contents);
    ASSERT_TRUE(chain.isMade());
    home.write("top.pdf", contents);
    const LinuxFileManager files;
    std::vector<FileItem> items;
    const auto found = [&](FoundFile&& file) { items.push_back(fileItem(std::move(file))); };
    ASSERT_TRUE(files.enumerate(home.url(), {}, found, {}));
    const auto groups = findDuplicates(files, items, {});
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].files.size(), 2U);
}

TEST(DeepTree, aPackageAsDeepIsMeasured) {
    const TemporaryFolder home;
    home.makeFolder("Deep.pages");
    const Chain chain(home.path("Deep.pages"), 1000, "deep");
    ASSERT_TRUE(chain.isMade());
    EXPECT_EQ(walkedAttributes(home.url()).at("Deep.pages").fileSize, 4);
}

TEST(DeepTree, aMillionEntriesInOneFolderAreReportedInOrder) {
    // In memory where there is room, because a million files take a disk their time.
    const std::filesystem::path memory("/dev/shm");
    const auto room =
        std::filesystem::exists(memory) ? std::filesystem::space(memory).available : 0;
    const bool fits = room > 2'000'000'000 && ::access(memory.c_str(), W_OK) == 0;
    const TemporaryFolder home(fits ? memory : std::filesystem::temp_directory_path());
    const FileDescriptor folder(::open(home.path().c_str(), O_RDONLY | O_DIRECTORY));
    constexpr int count = 1'000'000;
    for (int i = 0; i < count; ++i) {
        const FileDescriptor file(
            ::openat(folder.get(), std::to_string(i).c_str(), O_CREAT | O_WRONLY, 0600));
        if (!file) GTEST_SKIP() << "no room for a million files here";
    }
    std::string last;
    int reported = 0;
    bool isOrdered = true;
    const auto found = [&](FoundFile&& file) {
        const std::string path(file.url.path());
        isOrdered = isOrdered && last < path;
        last = path;
        ++reported;
    };
    EXPECT_TRUE(LinuxFileManager().enumerate(home.url(), {}, found, {}));
    EXPECT_EQ(reported, count);
    EXPECT_TRUE(isOrdered);
}

}  // namespace
}  // namespace nookwise
