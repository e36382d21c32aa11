#include "tests/support/FailingFileManager.h"
#include "tests/support/FakeFileManager.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class FakeFileChanges : public testing::Test {
  protected:
    FakeFileChanges() {
        files.addFile("/a", {.contents = "a"});
        files.addFile("/folder/b", {.contents = "b"});
    }

    bool exists(std::string_view path) const { return files.exists(FileUrl(path)); }
    std::error_code moving(std::string_view from, std::string_view to) {
        const auto moved = files.move(FileUrl(from), FileUrl(to));
        return moved ? std::error_code() : moved.error().code;
    }

    FakeFileManager files;
};

TEST_F(FakeFileChanges, exists) {
    files.addLink("/link", "/nowhere");
    EXPECT_TRUE(exists("/a"));
    EXPECT_TRUE(exists("/folder"));
    EXPECT_TRUE(exists("/link"));
    EXPECT_FALSE(exists("/nowhere"));
}

TEST_F(FakeFileChanges, moveNeverOverwrites) {
    EXPECT_EQ(moving("/a", "/folder/b"), std::errc::file_exists);
    EXPECT_EQ(files.contents("/a"), "a");
    EXPECT_EQ(files.contents("/folder/b"), "b");
    EXPECT_EQ(moving("/a", "/folder/a"), std::error_code());
    EXPECT_FALSE(exists("/a"));
    EXPECT_EQ(files.contents("/folder/a"), "a");
}

TEST_F(FakeFileChanges, moveTakesAFolderAlongButNotIntoItself) {
    EXPECT_EQ(moving("/folder", "/folder/sub"), std::errc::invalid_argument);
    EXPECT_EQ(moving("/folder", "/renamed"), std::error_code());
    EXPECT_EQ(files.contents("/renamed/b"), "b");
}

TEST_F(FakeFileChanges, moveNeedsASourceAndAFolder) {
    EXPECT_EQ(moving("/missing", "/b"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(moving("/a", "/missing/a"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(moving("/a", "/folder/b/a"), std::errc::not_a_directory);
}

TEST_F(FakeFileChanges, copyIsAFileOfItsOwn) {
    ASSERT_TRUE(files.copy(FileUrl("/a"), FileUrl("/folder/a")));
    files.setContents("/a", "changed");
    EXPECT_EQ(files.contents("/folder/a"), "a");
    EXPECT_FALSE(files.copy(FileUrl("/a"), FileUrl("/folder/a")));
}

TEST_F(FakeFileChanges, copyTellsItsBytesInPieces) {
    files.addFile("/large", {.size = 10'000'000});
    std::vector<std::int64_t> told;
    const CopyWatch watch{.planned = [&](std::int64_t bytes) { told.push_back(bytes); },
                          .copied = [&](std::int64_t bytes) { told.push_back(bytes); },
                          .stop = {}};
    ASSERT_TRUE(files.copy(FileUrl("/large"), FileUrl("/folder/large"), watch));
    EXPECT_EQ(told, (std::vector<std::int64_t>{10'000'000, 4'194'304, 4'194'304, 1'611'392}));
}

TEST_F(FakeFileChanges, moveTellsItsBytesOnlyToAnotherVolume) {
    files.addFolder("/disk");
    files.makeVolume("/disk");
    std::int64_t told = 0;
    const CopyWatch watch{
        .planned = {}, .copied = [&](std::int64_t bytes) { told += bytes; }, .stop = {}};
    ASSERT_TRUE(files.move(FileUrl("/a"), FileUrl("/folder/a"), watch));
    EXPECT_EQ(told, 0);
    ASSERT_TRUE(files.move(FileUrl("/folder"), FileUrl("/disk/folder"), watch));
    EXPECT_EQ(told, 2);
    EXPECT_EQ(files.contents("/disk/folder/b"), "b");
}

TEST_F(FakeFileChanges, stopBetweenTwoPieces) {
    files.addFile("/large", {.size = 10'000'000});
    files.addFolder("/disk");
    files.makeVolume("/disk");
    for (const bool isMove : {false, true}) {
        std::stop_source stop;
        const CopyWatch watch{.planned = {},
                              .copied = [&](std::int64_t) { stop.request_stop(); },
                              .stop = stop.get_token()};
        const FileUrl from("/large");
        const FileUrl to("/disk/large");
        const auto done = isMove ? files.move(from, to, watch) : files.copy(from, to, watch);
        EXPECT_EQ(done.error().code, std::errc::operation_canceled);
        EXPECT_TRUE(exists("/large"));
        EXPECT_FALSE(exists("/disk/large"));
    }
}

TEST_F(FakeFileChanges, trashTellsAPlaceOfItsOwn) {
    files.addFile("/folder/a", {.contents = "other"});
    EXPECT_EQ(files.trash(FileUrl("/a")).value(), FileUrl("/Trash/a"));
    EXPECT_EQ(files.trash(FileUrl("/folder/a")).value(), FileUrl("/Trash/a 2"));
    EXPECT_FALSE(files.trash(FileUrl("/missing")));
    files.keepTrashPlacesSecret();
    EXPECT_EQ(files.trash(FileUrl("/folder/b")).value(), std::nullopt);
    EXPECT_FALSE(exists("/folder/b"));
}

TEST_F(FakeFileChanges, createFolderMakesTheWayThere) {
    EXPECT_TRUE(files.createFolder(FileUrl("/x/y/z"), FolderAccess::usual));
    EXPECT_TRUE(files.createFolder(FileUrl("/x/y/z"), FolderAccess::usual));
    EXPECT_TRUE(exists("/x/y/z"));
    EXPECT_FALSE(files.createFolder(FileUrl("/a"), FolderAccess::usual));
}

TEST_F(FakeFileChanges, replaceContentsMakesAFileInAFolderThatIsThere) {
    EXPECT_TRUE(files.replaceContents(FileUrl("/new"), "1"));
    EXPECT_TRUE(files.replaceContents(FileUrl("/new"), "22"));
    EXPECT_EQ(files.contents("/new"), "22");
    EXPECT_FALSE(files.replaceContents(FileUrl("/missing/new"), "1"));
    EXPECT_FALSE(files.replaceContents(FileUrl("/folder"), "1"));
}

TEST_F(FakeFileChanges, replaceContentsTakesThemPieceByPiece) {
    const auto inPieces = [](const ContentsSink& sink) { return sink("1") && sink("22"); };
    EXPECT_TRUE(files.replaceContents(FileUrl("/new"), inPieces));
    EXPECT_EQ(files.contents("/new"), "122");
    const auto givingUp = [](const ContentsSink& sink) { return sink("1") && false; };
    EXPECT_EQ(files.replaceContents(FileUrl("/new"), givingUp).error().code,
              std::errc::operation_canceled);
    EXPECT_EQ(files.contents("/new"), "122");
}

TEST_F(FakeFileChanges, replaceContentsNeedsRoomForAllOfThem) {
    files.setRoomForContents(2);
    EXPECT_TRUE(files.replaceContents(FileUrl("/new"), "12"));
    const auto heedless = [](const ContentsSink& sink) {
        EXPECT_TRUE(sink("12"));
        EXPECT_FALSE(sink("3"));
        return true;
    };
    EXPECT_EQ(files.replaceContents(FileUrl("/new"), heedless).error().code,
              std::errc::no_space_on_device);
    EXPECT_EQ(files.contents("/new"), "12");
}

TEST_F(FakeFileChanges, areRefusedWhereForbidden) {
    files.forbidChanges("/folder");
    EXPECT_EQ(moving("/folder/b", "/b"), std::errc::permission_denied);
    EXPECT_EQ(moving("/a", "/folder/a"), std::errc::permission_denied);
    EXPECT_FALSE(files.copy(FileUrl("/a"), FileUrl("/folder/a")));
    EXPECT_FALSE(files.trash(FileUrl("/folder/b")));
    EXPECT_FALSE(files.createFolder(FileUrl("/folder/new"), FolderAccess::usual));
    EXPECT_FALSE(files.replaceContents(FileUrl("/folder/b"), "new"));
    EXPECT_EQ(files.contents("/folder/b"), "b");
}

TEST_F(FakeFileChanges, failOneByOneBehindAFailingFileManager) {
    FailingFileManager first(files, 1);
    EXPECT_FALSE(first.exists(FileUrl("/a")));
    EXPECT_TRUE(first.exists(FileUrl("/a")));
    const auto failsFirst = [&](auto operation) {
        FailingFileManager failing(files, 1);
        EXPECT_FALSE(operation(failing));
        EXPECT_EQ(failing.operations(), 1);
    };
    const FileUrl a("/a"), to("/to");
    failsFirst([&](FileManager& failing) { return bool(failing.move(a, to)); });
    failsFirst([&](FileManager& failing) { return bool(failing.copy(a, to)); });
    failsFirst([&](FileManager& failing) { return bool(failing.trash(a)); });
    failsFirst(
        [&](FileManager& failing) { return bool(failing.createFolder(to, FolderAccess::usual)); });
    failsFirst([&](FileManager& failing) { return bool(failing.replaceContents(a, "new")); });
    EXPECT_EQ(files.contents("/a"), "a");
    EXPECT_FALSE(exists("/to"));
}

TEST_F(FakeFileChanges, failInTheMiddleOfContentsBehindAFailingFileManager) {
    const auto heedless = [](const ContentsSink& sink) {
        sink("1");
        sink("22");
        return true;
    };
    FailingFileManager counting(files, 0);
    ASSERT_TRUE(counting.replaceContents(FileUrl("/a"), heedless));
    EXPECT_EQ(counting.operations(), 3);
    EXPECT_EQ(files.contents("/a"), "122");
    for (int i = 1; i <= 3; ++i) {
        FailingFileManager failing(files, i);
        EXPECT_EQ(failing.replaceContents(FileUrl("/a"), heedless).error().code,
                  std::errc::io_error);
        EXPECT_EQ(failing.operations(), i);
        EXPECT_EQ(files.contents("/a"), "122");
    }
}

}  // namespace
}  // namespace nookwise
