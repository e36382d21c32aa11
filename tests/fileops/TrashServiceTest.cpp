#include "fileops/TrashService.h"
#include "tests/support/FakeFileManager.h"

#include <utility>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Moves = std::vector<ActivityEntry::Move>;

class TrashServiceTest : public testing::Test {
  protected:
    static FileItem item(std::string_view path, std::int64_t size) {
        return {.url = FileUrl(path), .size = size};
    }
    TrashService::Trashed trash(const std::vector<FileItem>& items) {
        return TrashService::trash(files, items, [](std::size_t) {});
    }
    std::size_t putBack(const Moves& moves) {
        return TrashService::putBack(files, moves, [](std::size_t) {}).count;
    }
    /// A move of a file that lies in the Trash.
    ActivityEntry::Move trashed(std::string_view original, std::string_view inTrash) {
        files.addFile(inTrash, {.contents = std::string(original)});
        return {FileUrl(original), FileUrl(inTrash), 1};
    }

    FakeFileManager files;
};

TEST_F(TrashServiceTest, tellsWhereEachFileWent) {
    files.addFile("/home/a");
    files.addFile("/other/a");
    const auto result = trash({item("/home/a", 1), item("/other/a", 2)});
    EXPECT_EQ(result.moves, (Moves{{FileUrl("/home/a"), FileUrl("/Trash/a"), 1},
                                   {FileUrl("/other/a"), FileUrl("/Trash/a 2"), 2}}));
    EXPECT_TRUE(result.failed.empty());
}

TEST_F(TrashServiceTest, goesOnPastFailures) {
    files.addFile("/a");
    files.addFile("/locked");
    files.forbidChanges("/locked");
    const auto result = trash({item("/vanished", 1), item("/locked", 2), item("/a", 4)});
    EXPECT_EQ(result.moves, (Moves{{FileUrl("/a"), FileUrl("/Trash/a"), 4}}));
    EXPECT_EQ(result.failed, (std::vector{FileUrl("/vanished"), FileUrl("/locked")}));
}

TEST_F(TrashServiceTest, countsAFileWithoutAKnownPlaceNeitherWay) {
    files.addFile("/a");
    files.keepTrashPlacesSecret();
    const auto result = trash({item("/a", 1)});
    EXPECT_TRUE(result.moves.empty());
    EXPECT_TRUE(result.failed.empty());
    EXPECT_FALSE(files.exists(FileUrl("/a")));
}

TEST_F(TrashServiceTest, hasNothingToDoForAnEmptyList) {
    const auto result = trash({});
    EXPECT_TRUE(result.moves.empty());
    EXPECT_TRUE(result.failed.empty());
    EXPECT_EQ(files.operations(), 0);
}

TEST_F(TrashServiceTest, checksNothingBeforehand) {
    files.addFile("/a");
    trash({item("/a", 1)});
    EXPECT_EQ(files.operations(), 1);
}

TEST_F(TrashServiceTest, takesAFolderThatTookTheFilesPlace) {
    files.addFile("/a/inside", {.contents = "kept"});
    ASSERT_EQ(trash({item("/a", 1)}).moves.size(), 1u);
    EXPECT_EQ(files.contents("/Trash/a/inside"), "kept");
}

TEST_F(TrashServiceTest, tellsBeforeEachFileHowManyAreDone) {
    files.addFile("/a");
    std::vector<std::size_t> told;
    const auto tell = [&](std::size_t done) { told.push_back(done); };
    TrashService::trash(files, {item("/a", 1), item("/vanished", 1)}, tell);
    TrashService::putBack(files, {{FileUrl("/a"), FileUrl("/Trash/a"), 1}}, tell);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1, 0}));
}

TEST_F(TrashServiceTest, putsFilesBackWhereTheyWere) {
    files.addFolder("/home");
    EXPECT_EQ(putBack({trashed("/home/a", "/Trash/a"), trashed("/home/b", "/Trash/a 2")}), 2u);
    EXPECT_EQ(files.contents("/home/a"), "/home/a");
    EXPECT_EQ(files.contents("/home/b"), "/home/b");
    EXPECT_FALSE(files.exists(FileUrl("/Trash/a")));
}

TEST_F(TrashServiceTest, makesAFolderAgainThatIsGone) {
    EXPECT_EQ(putBack({trashed("/home/deep/er/a", "/Trash/a")}), 1u);
    EXPECT_EQ(files.contents("/home/deep/er/a"), "/home/deep/er/a");
}

TEST_F(TrashServiceTest, putsAFileBackUnderTheNextFreeName) {
    files.addFile("/home/Report.pdf", {.contents = "new"});
    files.addFile("/home/Report (2).pdf", {.contents = "newer"});
    files.addFile("/home/Notes", {.contents = "new"});
    EXPECT_EQ(
        putBack({trashed("/home/Report.pdf", "/Trash/r"), trashed("/home/Notes", "/Trash/n")}), 2u);
    EXPECT_EQ(files.contents("/home/Report (3).pdf"), "/home/Report.pdf");
    EXPECT_EQ(files.contents("/home/Notes (2)"), "/home/Notes");
    EXPECT_EQ(files.contents("/home/Report.pdf"), "new");
}

TEST_F(TrashServiceTest, tellsWhichFilesAreNotWhereTheyWere) {
    files.addFile("/home/taken", {.contents = "new"});
    const auto returned =
        TrashService::putBack(files,
                              {trashed("/home/a", "/Trash/a"),
                               trashed("/home/taken", "/Trash/t"),
                               {FileUrl("/home/gone"), FileUrl("/Trash/gone"), 1}},
                              [](std::size_t) {});
    EXPECT_EQ(returned.count, 2u);
    EXPECT_EQ(returned.astray, (std::vector{FileUrl("/home/taken"), FileUrl("/home/gone")}));
}

TEST_F(TrashServiceTest, overwritesNothingThatAppearsAtTheLastMoment) {
    files.addFolder("/home");
    const auto move = trashed("/home/a", "/Trash/a");
    bool isTaken = false;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::move || std::exchange(isTaken, true)) return;
        files.addFile("/home/a", {.contents = "somebody's"});
    });
    EXPECT_EQ(putBack({move}), 1u);
    EXPECT_EQ(files.contents("/home/a"), "somebody's");
    EXPECT_EQ(files.contents("/home/a (2)"), "/home/a");
}

TEST_F(TrashServiceTest, skipsWhatIsNoLongerInTheTrashOrCannotComeBack) {
    files.addFolder("/locked");
    files.forbidChanges("/locked");
    files.addFile("/file");
    EXPECT_EQ(putBack({{FileUrl("/home/gone"), FileUrl("/Trash/gone"), 1},
                       trashed("/locked/a", "/Trash/a"),
                       trashed("/file/b", "/Trash/b"),
                       trashed("/home/c", "/Trash/c")}),
              1u);
    EXPECT_TRUE(files.exists(FileUrl("/Trash/a")));
    EXPECT_TRUE(files.exists(FileUrl("/Trash/b")));
    EXPECT_FALSE(files.exists(FileUrl("/home/gone")));
}

}  // namespace
}  // namespace nookwise
