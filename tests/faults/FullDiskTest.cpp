#include "fileops/ActivityStore.h"
#include "platform/linux/LinuxFileManager.h"
#include "tests/changes/Snapshot.h"
#include "tests/faults/ItemFiles.h"
#include "tests/faults/SavedLog.h"
#include "tests/faults/TestVolumes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class FullDisk : public testing::Test {
  protected:
    void SetUp() override {
        if (const auto obstacle = mountPrivately()) GTEST_SKIP() << *obstacle;
        disk_ = TestVolume::inMemory("size=2m,nr_inodes=300");
    }

    fs::path disk(std::string_view name = "") const { return disk_->path() / name; }

    std::uintmax_t available() const { return fs::space(disk()).available; }

    /// Leaves so many bytes.
    void fillBut(std::uintmax_t left) const {
        writeFile(disk("filler"), std::string(available() - left, 'f'));
        ASSERT_LE(available(), left);
    }

    /// There is room for bytes, but for no further file.
    void useUpInodes() const {
        for (int i = 0;; ++i) {
            const auto file = disk("inode " + std::to_string(i));
            if (::mkdir(file.c_str(), 0700) != 0) return;
        }
    }

    void expectUntouched(const fs::path& item, const std::map<std::string, std::string>& before,
                         const std::string& namesBefore) const {
        EXPECT_EQ(snapshot(item), before);
        EXPECT_EQ(names(disk()), namesBefore);
        const auto records = home.path() / "data/Nookwise/unfinished";
        EXPECT_EQ(fs::exists(records) ? names(records) : "", "");
    }

    const TemporaryFolder home;
    LinuxFileManager files{home.url("data")};

  private:
    std::unique_ptr<TestVolume> disk_;
};

constexpr std::uintmax_t page = 4096;
constexpr std::uintmax_t room = 64 * page;

/// What a file of `size` bytes does where `room` bytes are left.
class FullDiskStraddled : public FullDisk, public testing::WithParamInterface<std::uintmax_t> {
  protected:
    void SetUp() override {
        FullDisk::SetUp();
        if (IsSkipped()) return;
        fillBut(room);
        writeFile(item, std::string(GetParam(), 'i'));
    }
    bool fits() const { return GetParam() <= room; }

    const fs::path item = home.path() / "item";
};
INSTANTIATE_TEST_SUITE_P(sizes, FullDiskStraddled,
                         testing::Values(0, 1, room - page, room - 1, room, room + 1, room + page,
                                         2 * room, 4'000'000));

TEST_P(FullDiskStraddled, takesAMovedFileWholeOrNotAtAll) {
    const auto before = snapshot(item);
    const auto namesBefore = names(disk());
    const auto moved = files.move(FileUrl(item.native()), FileUrl(disk("item").native()));
    ASSERT_EQ(static_cast<bool>(moved), fits());
    if (moved) {
        EXPECT_EQ(snapshot(disk("item")), before);
        EXPECT_FALSE(fs::exists(item));
    } else {
        EXPECT_EQ(moved.error().code, std::errc::no_space_on_device);
        expectUntouched(item, before, namesBefore);
        EXPECT_EQ(available(), room);
    }
}

TEST_P(FullDiskStraddled, takesACopiedFileWholeOrNotAtAll) {
    const auto before = snapshot(item);
    const auto namesBefore = names(disk());
    const auto copied = files.copy(FileUrl(item.native()), FileUrl(disk("item").native()));
    ASSERT_EQ(static_cast<bool>(copied), fits());
    if (copied) {
        EXPECT_EQ(snapshot(disk("item")), before);
        EXPECT_EQ(snapshot(item), before);
    } else {
        EXPECT_EQ(copied.error().code, std::errc::no_space_on_device);
        expectUntouched(item, before, namesBefore);
        EXPECT_EQ(available(), room);
    }
}

TEST_P(FullDiskStraddled, takesAMovedFolderWholeOrNotAtAll) {
    const auto folder = home.path() / "folder";
    writeItemAt(folder, Item::folder);
    fs::rename(item, folder / "last");
    const auto before = snapshot(folder);
    const auto namesBefore = names(disk());
    const auto moved = files.move(FileUrl(folder.native()), FileUrl(disk("folder").native()));
    if (moved) {
        EXPECT_LT(GetParam(), room);
        EXPECT_EQ(snapshot(disk("folder")), before);
        EXPECT_FALSE(fs::exists(folder));
    } else {
        EXPECT_EQ(moved.error().code, std::errc::no_space_on_device);
        EXPECT_GT(GetParam() + 16 * page, room);
        expectUntouched(folder, before, namesBefore);
    }
}

TEST_F(FullDisk, thatHasNoRoomForNamesKeepsTheMovedFileOut) {
    const auto item = home.path() / "item";
    writeFile(item, "i");
    useUpInodes();
    const auto before = snapshot(item);
    const auto namesBefore = names(disk());
    const auto moved = files.move(FileUrl(item.native()), FileUrl(disk("item").native()));
    ASSERT_FALSE(moved);
    EXPECT_EQ(moved.error().code, std::errc::no_space_on_device);
    expectUntouched(item, before, namesBefore);
}

TEST_F(FullDisk, losesNothingToATrashThatCannotBeMade) {
    writeFile(disk("item"), "i");
    useUpInodes();
    const auto before = snapshot(disk("item"));
    const auto namesBefore = names(disk());
    const auto trashed = files.trash(FileUrl(disk("item").native()));
    ASSERT_FALSE(trashed);
    EXPECT_EQ(trashed.error().code, std::errc::no_space_on_device);
    expectUntouched(disk("item"), before, namesBefore);
}

TEST_F(FullDisk, losesNothingToATrashThatCannotDescribeIt) {
    writeFile(disk("item"), "i");
    writeFile(disk("another"), "a");
    ASSERT_TRUE(files.trash(FileUrl(disk("another").native())));
    const auto trash = disk(".Trash-" + std::to_string(::geteuid()));
    const auto before = snapshot(disk("item"));
    const auto trashBefore = names(trash / "info") + names(trash / "files");
    fillBut(0);
    const auto trashed = files.trash(FileUrl(disk("item").native()));
    ASSERT_FALSE(trashed);
    EXPECT_EQ(trashed.error().code, std::errc::no_space_on_device);
    EXPECT_EQ(snapshot(disk("item")), before);
    EXPECT_EQ(names(trash / "info") + names(trash / "files"), trashBefore);
}

TEST_F(FullDisk, keepsTheOldLogWhereTheNewOneDoesNotFit) {
    LinuxFileManager own{FileUrl(disk("data").native())};
    ActivityStore store(own, FileUrl(disk("data/Nookwise").native()));
    store.save(logOf(3));
    ASSERT_EQ(store.load(), logOf(3));
    for (const std::uintmax_t left : {std::uintmax_t{0}, page, 8 * page}) {
        fs::remove(disk("filler"));
        fillBut(left);
        store.save(logOf(500));
        EXPECT_EQ(store.load(), logOf(3)) << left;
        EXPECT_EQ(names(disk("data/Nookwise")), "activity.json") << left;
    }
    fs::remove(disk("filler"));
    store.save(logOf(500));
    EXPECT_EQ(store.load(), logOf(500));
}

}  // namespace
}  // namespace nookwise
