#include "fileops/ActivityJson.h"
#include "fileops/ActivityStore.h"
#include "tests/support/FailingFileManager.h"
#include "tests/support/FakeFileManager.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr auto folderPath = "/home/user/.local/share/Nookwise";
constexpr auto filePath = "/home/user/.local/share/Nookwise/activity.json";

std::vector<ActivityEntry> entriesOf(int count) {
    std::vector<ActivityEntry> entries;
    for (int i = 0; i < count; ++i)
        entries.push_back({.id = Uuid::random(), .date = Date{}, .title = std::to_string(i)});
    return entries;
}

class ActivityLog : public testing::Test {
  protected:
    ActivityStore store() { return {files, FileUrl(folderPath)}; }

    FakeFileManager files;
};

TEST_F(ActivityLog, liesInTheApplicationsOwnFolderWhichItMakes) {
    EXPECT_EQ(store().file(), FileUrl(filePath));
    EXPECT_TRUE(files.exists(FileUrl(folderPath)));
    EXPECT_FALSE(files.exists(FileUrl(filePath)));
}

TEST_F(ActivityLog, isNotReadWhenTheStoreIsMade) {
    files.addFile(filePath, {.contents = "[]"});
    files.onOperation([](const FakeOperation& operation) {
        EXPECT_NE(operation.kind, FakeOperation::Kind::open);
    });
    (void)store();
}

TEST_F(ActivityLog, comesBackAsItWasSaved) {
    const auto entries = entriesOf(3);
    store().save(entries);
    EXPECT_EQ(store().load(), entries);
}

TEST_F(ActivityLog, holdsTheFiveHundredNewest) {
    const auto entries = entriesOf(600);
    store().save(entries);
    EXPECT_EQ(store().load(), std::vector(entries.begin(), entries.begin() + 500));
}

TEST_F(ActivityLog, thatIsMissingOrNoLogIsEmpty) {
    EXPECT_TRUE(store().load().empty());
    for (const auto* contents : {"", "[", "{}", "not json", "[{\"id\":1}]"}) {
        files.addFile(filePath, {.contents = contents});
        EXPECT_TRUE(store().load().empty()) << contents;
        EXPECT_EQ(files.contents(filePath), contents) << "stays until the next save";
    }
}

TEST_F(ActivityLog, thatIsHugeIsEmptyAndNotTakenIntoMemory) {
    files.addFile(filePath, {.contents = "[]", .size = std::int64_t{1} << 50});
    std::int64_t reads = 0;
    files.onOperation([&](const FakeOperation& operation) {
        reads += operation.kind == FakeOperation::Kind::read ? 1 : 0;
    });
    EXPECT_TRUE(store().load().empty());
    EXPECT_LT(reads, 2'000);
}

TEST_F(ActivityLog, thatIsAFolderIsEmptyAndLeftAlone) {
    files.addFolder(filePath);
    files.addFile(std::string(filePath) + "/kept", {.contents = "kept"});
    EXPECT_TRUE(store().load().empty());
    store().save(entriesOf(1));
    EXPECT_EQ(files.contents(std::string(filePath) + "/kept"), "kept");
}

TEST_F(ActivityLog, isReadThroughALink) {
    const auto entries = entriesOf(2);
    files.addFile("/elsewhere/log", {.contents = activityJson(entries)});
    files.addLink(filePath, "/elsewhere/log");
    EXPECT_EQ(store().load(), entries);
}

TEST_F(ActivityLog, thatCannotBeWrittenFailsSilentlyAndIsWrittenWholeTheNextTime) {
    auto log = store();
    files.remove(folderPath);
    const auto entries = entriesOf(2);
    log.save(entries);
    EXPECT_FALSE(files.exists(FileUrl(filePath)));
    files.addFolder(folderPath);
    log.save(entries);
    EXPECT_EQ(log.load(), entries);
}

TEST_F(ActivityLog, isEmptyWhereAnyStepOfReadingFails) {
    store().save(entriesOf(2));
    FailingFileManager counting(files, 0);
    ActivityStore(counting, FileUrl(folderPath)).load();
    // The first operation makes the folder.
    for (int i = 2; i <= counting.operations(); ++i) {
        FailingFileManager failing(files, i);
        EXPECT_TRUE(ActivityStore(failing, FileUrl(folderPath)).load().empty()) << i;
    }
}

}  // namespace
}  // namespace nookwise
