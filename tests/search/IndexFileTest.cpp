#include "search/IndexFile.h"
#include "tests/support/FailingFileManager.h"
#include "tests/support/FakeFileManager.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr std::string_view folderPath = "/home/user/.local/share/Nookwise";
constexpr std::string_view filePath = "/home/user/.local/share/Nookwise/text-index.json";

class FileOfTheIndex : public testing::Test {
  protected:
    IndexFile in(FileManager& manager) const { return {manager, FileUrl(folderPath)}; }
    static bool save(IndexFile index, const IndexEntries& entries) {
        return index.save([&](IndexJsonWriter& writer) {
            return std::all_of(entries.begin(), entries.end(), [&](const auto& entry) {
                return writer.add(entry.first, entry.second);
            });
        });
    }
    bool save(const IndexEntries& entries) { return save(in(files), entries); }
    IndexEntries load() { return in(files).load(); }

    const IndexEntries some{{FileUrl("/a"), indexEntry(1, "Text", SharedBytes("Slack"))},
                            {FileUrl("/b\xff"), indexEntry(2, "", std::nullopt)}};
    const IndexEntries others{{FileUrl("/c"), indexEntry(3, std::string(1'000'000, 'C'), {})}};
    FakeFileManager files;
};

TEST_F(FileOfTheIndex, bringsBackWhatWasSaved) {
    EXPECT_TRUE(save(some));
    EXPECT_EQ(load(), some);
    EXPECT_TRUE(save(others));
    EXPECT_EQ(load(), others);
    EXPECT_TRUE(save(IndexEntries()));
    EXPECT_EQ(load(), IndexEntries());
}

TEST_F(FileOfTheIndex, hasItsFolderMadeAndNothingElse) {
    in(files);
    EXPECT_TRUE(files.exists(FileUrl(folderPath)));
    EXPECT_FALSE(files.exists(FileUrl(filePath)));
}

TEST_F(FileOfTheIndex, mayBeALink) {
    files.addFile("/elsewhere/index", {.contents = R"({"/a":{"mtime":1,"text":"x"}})"});
    files.addFolder(folderPath);
    files.addLink(filePath, "/elsewhere/index");
    EXPECT_EQ(load(), (IndexEntries{{FileUrl("/a"), indexEntry(1, "x", std::nullopt)}}));
}

TEST_F(FileOfTheIndex, isEmptyWhereThereIsNoneThatCanBeRead) {
    EXPECT_TRUE(load().empty());
    files.addFile(filePath, {.contents = "[]"});
    EXPECT_TRUE(load().empty());
    ASSERT_TRUE(save(some));
    files.makeUnreadable(filePath);
    EXPECT_TRUE(load().empty());
    files.remove(filePath);
    files.addFolder(filePath);
    EXPECT_TRUE(load().empty());
    EXPECT_FALSE(save(some));
}

TEST_F(FileOfTheIndex, isEmptyWhereverReadingItFails) {
    ASSERT_TRUE(save(others));
    FailingFileManager counting(files, 0);
    ASSERT_EQ(in(counting).load(), others);
    ASSERT_GT(counting.operations(), 6);
    // The first operation makes the folder.
    for (int i = 2; i <= counting.operations(); ++i) {
        FailingFileManager failing(files, i);
        EXPECT_TRUE(in(failing).load().empty()) << i;
    }
}

TEST_F(FileOfTheIndex, staysAsItWasWhereverWritingItFails) {
    ASSERT_TRUE(save(some));
    // The first operation makes the folder, which is there.
    int failingOperation = 2;
    for (;; ++failingOperation) {
        FailingFileManager failing(files, failingOperation);
        if (save(in(failing), others)) break;
        ASSERT_EQ(load(), some) << failingOperation;
        ASSERT_LT(failingOperation, 100);
    }
    EXPECT_GT(failingOperation, 4);
    EXPECT_EQ(load(), others);
}

TEST_F(FileOfTheIndex, staysAsItWasOnAFullDisk) {
    ASSERT_TRUE(save(some));
    for (const std::size_t room : {0U, 1U, 300'000U, 999'999U}) {
        files.setRoomForContents(room);
        EXPECT_FALSE(save(others)) << room;
        EXPECT_EQ(load(), some) << room;
    }
}

TEST_F(FileOfTheIndex, staysAsItWasWhenNotAllIsGiven) {
    ASSERT_TRUE(save(some));
    EXPECT_FALSE(in(files).save([&](IndexJsonWriter& writer) {
        return writer.add(FileUrl("/d"), indexEntry(4, "D", {})) && false;
    }));
    EXPECT_EQ(load(), some);
}

TEST_F(FileOfTheIndex, staysAsItWasWhereItMayNotBeWritten) {
    ASSERT_TRUE(save(some));
    files.forbidChanges(folderPath);
    EXPECT_FALSE(save(others));
    EXPECT_EQ(load(), some);
}

TEST_F(FileOfTheIndex, isReadAsFarAsItWentWhenItGrowsMeanwhile) {
    ASSERT_TRUE(save(some));
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::read)
            files.setContents(filePath, files.contents(filePath) + ",{}");
    });
    EXPECT_EQ(load(), some);
}

TEST_F(FileOfTheIndex, isEmptyWhenItShrinksMeanwhile) {
    ASSERT_TRUE(save(some));
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::read) files.setContents(filePath, "{\"/a\":");
    });
    EXPECT_TRUE(load().empty());
}

}  // namespace
}  // namespace nookwise
