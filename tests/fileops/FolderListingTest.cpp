#include "fileops/FolderListing.h"
#include "tests/support/FailingFileManager.h"
#include "tests/support/FakeFileManager.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = FakeOperation::Kind;

constexpr Date today{Seconds{1'700'000'000}};
constexpr Date yesterday = today - Seconds{86'400};
constexpr Date year2020{Seconds{1'577'836'800}};

class ListingOfAFolder : public testing::Test {
  protected:
    ListingOfAFolder() { files.addFolder("/home"); }

    std::vector<FolderItem> list(std::string_view folder = "/home") const {
        return listFolder(files, FileUrl(folder), {});
    }

    std::vector<std::string> names(std::string_view folder = "/home") const {
        std::vector<std::string> result;
        for (const auto& item : list(folder)) result.emplace_back(item.url.lastPathComponent());
        return result;
    }

    void addDatedFolder(std::string_view path, Date added) {
        files.addFolder(path);
        files.setAttributes(path, {.type = FileType::folder, .added = added});
    }

    FakeFileManager files;
};

TEST_F(ListingOfAFolder, hasFoldersFirstHoweverOldTheyAre) {
    files.addFile("/home/new file", {.added = today});
    addDatedFolder("/home/old folder", year2020);
    EXPECT_THAT(names(), ElementsAre("old folder", "new file"));
}

TEST_F(ListingOfAFolder, hasTheNewestOfEachKindFirstAndTheUndatedLast) {
    files.addFile("/home/a undated");
    files.addFile("/home/b undated");
    files.addFile("/home/c old", {.added = year2020});
    files.addFile("/home/d new", {.added = today});
    files.addFolder("/home/e undated");
    addDatedFolder("/home/f old", year2020);
    addDatedFolder("/home/g new", today);
    EXPECT_THAT(names(), ElementsAre("g new", "f old", "e undated", "d new", "c old", "a undated",
                                     "b undated"));
}

TEST_F(ListingOfAFolder, keepsTheOrderOfNamesWhereDatesAreEqual) {
    for (const auto* name : {"/home/c", "/home/a", "/home/B"}) {
        files.addFile(name, {.added = today});
    }
    EXPECT_THAT(names(), ElementsAre("B", "a", "c"));
}

TEST_F(ListingOfAFolder, datesAFileByItsArrivalElseByItsLastChange) {
    files.addFile("/home/both", {.modified = year2020, .added = today});
    files.addFile("/home/changed", {.modified = yesterday});
    files.addFile("/home/neither");
    const auto items = list();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].date, today);
    EXPECT_EQ(items[1].date, yesterday);
    EXPECT_EQ(items[2].date, std::nullopt);
}

TEST_F(ListingOfAFolder, measuresAFileByItsBytesOnDiskElseByItsLength) {
    files.addFile("/home/a", {.contents = "12345", .allocated = 4'096});
    files.addFile("/home/b");
    files.setAttributes("/home/b", {.type = FileType::regular, .fileSize = 5});
    files.addFile("/home/c");
    files.setAttributes("/home/c", {.type = FileType::regular});
    const auto items = list();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].size, 4'096);
    EXPECT_EQ(items[1].size, 5);
    EXPECT_EQ(items[2].size, 0);
}

TEST_F(ListingOfAFolder, listsAPackageAsAFileWithItsAllocatedSize) {
    files.addPackage("/home/Tool.app", {.allocated = 123'456, .added = year2020});
    files.addFile("/home/newer", {.added = today});
    files.addFolder("/home/folder");
    EXPECT_THAT(names(), ElementsAre("folder", "newer", "Tool.app"));
    EXPECT_FALSE(list()[2].isFolder);
    EXPECT_EQ(list()[2].size, 123'456);
}

TEST_F(ListingOfAFolder, neverHasHiddenEntries) {
    files.addFile("/home/.profile");
    files.addFolder("/home/.config");
    files.addPackage("/home/.Tool.app");
    files.addFile("/home/shown");
    EXPECT_THAT(names(), ElementsAre("shown"));
}

TEST_F(ListingOfAFolder, listsLinksPipesAndDevicesAsFilesWithTheirOwnValues) {
    addDatedFolder("/home/target", today);
    files.addLink("/home/dangling", "nowhere");
    files.addLink("/home/itself", "itself");
    files.addLink("/home/link to a folder", "target");
    files.addOther("/home/pipe");
    EXPECT_THAT(names(), ElementsAre("target", "dangling", "itself", "link to a folder", "pipe"));
    int opened = 0;
    files.onOperation(
        [&](const FakeOperation& operation) { opened += operation.kind == Kind::open; });
    for (const auto& item : list()) {
        EXPECT_EQ(item.isFolder, item.url == FileUrl("/home/target"));
        EXPECT_EQ(item.size, 0);
    }
    EXPECT_EQ(opened, 0);
}

TEST_F(ListingOfAFolder, keepsNamesOfAnyBytesAndAnyLength) {
    const std::string notText = "caf\xE9\n\x01";
    const std::string longest(255, 'x');
    files.addFile("/home/" + notText, {.added = today});
    files.addFile("/home/" + longest);
    EXPECT_THAT(names(), ElementsAre(notText, longest));
}

TEST_F(ListingOfAFolder, throughALinkHasItsEntriesBelowTheLink) {
    files.addFile("/real/file");
    files.addLink("/home/link", "/real");
    ASSERT_EQ(list("/home/link").size(), 1u);
    EXPECT_EQ(list("/home/link")[0].url, FileUrl("/home/link/file"));
}

TEST_F(ListingOfAFolder, isEmptyWhereThereIsNothingToList) {
    files.addFile("/home/file");
    files.addLink("/home/itself", "itself");
    files.addFile("/home/closed/file");
    files.makeUnreadable("/home/closed");
    for (const auto* folder : {"/home/missing", "/home/file", "/home/itself", "/home/closed"}) {
        EXPECT_THAT(list(folder), IsEmpty()) << folder;
    }
}

TEST_F(ListingOfAFolder, leavesOutAPackageThatCannotBeReadOrVanishesMeanwhile) {
    files.addPackage("/home/Gone.app");
    files.addPackage("/home/Tool.app");
    const FailingFileManager failing(files, 2);
    const auto items = listFolder(failing, FileUrl("/home"), {});
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].url, FileUrl("/home/Tool.app"));
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == Kind::attributes && operation.url == FileUrl("/home/Gone.app"))
            files.remove("/home/Gone.app");
    });
    EXPECT_THAT(names(), ElementsAre("Tool.app"));
}

TEST_F(ListingOfAFolder, asksAboutNothingButPackages) {
    files.addFile("/home/file");
    files.addFolder("/home/folder");
    files.addLink("/home/link", "file");
    const auto before = files.operations();
    list();
    EXPECT_EQ(files.operations() - before, 1);
}

TEST_F(ListingOfAFolder, isEmptyAfterAStopRequestWhereverItComes) {
    for (int i = 0; i < 3; ++i) files.addPackage("/home/" + std::to_string(i) + ".app");
    for (int number = 1; number <= 4; ++number) {
        std::stop_source stop;
        int operations = 0;
        files.onOperation([&](const FakeOperation&) {
            if (++operations == number) stop.request_stop();
        });
        EXPECT_THAT(listFolder(files, FileUrl("/home"), stop.get_token()), IsEmpty()) << number;
        EXPECT_EQ(operations, number) << "nothing further is asked";
    }
}

}  // namespace
}  // namespace nookwise
