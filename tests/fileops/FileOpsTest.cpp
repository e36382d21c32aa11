#include "fileops/FileOps.h"
#include "platform/Text.h"
#include "tests/support/FakeFileManager.h"

#include <utility>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Move = ActivityEntry::Move;
using Moves = std::vector<Move>;

class FreeName : public testing::Test {
  protected:
    std::string freeName(std::string_view name) {
        return std::string(FileOps::freeURL(files, name, FileUrl("/folder")).lastPathComponent());
    }
    void take(std::string_view name) { files.addFile(FileUrl("/folder").append(name).path()); }

    FakeFileManager files;
};

TEST_F(FreeName, isTheNameItselfWhereNothingHasIt) {
    EXPECT_EQ(FileOps::freeURL(files, "Report.pdf", FileUrl("/folder")),
              FileUrl("/folder/Report.pdf"));
}

TEST_F(FreeName, isNumberedFromTwo) {
    take("Report.pdf");
    EXPECT_EQ(freeName("Report.pdf"), "Report (2).pdf");
    take("Report (2).pdf");
    EXPECT_EQ(freeName("Report.pdf"), "Report (3).pdf");
    EXPECT_EQ(freeName("Report (2).pdf"), "Report (2) (2).pdf");
}

TEST_F(FreeName, keepsTheLastExtensionOnly) {
    for (const auto* name : {"Notes", "a.tar.gz", ".profile", "trailing."}) take(name);
    EXPECT_EQ(freeName("Notes"), "Notes (2)");
    EXPECT_EQ(freeName("a.tar.gz"), "a.tar (2).gz");
    EXPECT_EQ(freeName(".profile"), ".profile (2)");
}

TEST_F(FreeName, isNotThatOfALinkThatLeadsNowhere) {
    files.addLink("/folder/link", "/nowhere");
    EXPECT_EQ(freeName("link"), "link (2)");
}

TEST_F(FreeName, isCutToTheLongestThatFits) {
    const auto longest = std::string(251, 'n') + ".pdf";
    take(longest);
    EXPECT_EQ(freeName(longest), std::string(247, 'n') + " (2).pdf");
}

TEST_F(FreeName, isCutBetweenCharacters) {
    // 125 letters of two bytes each, and an e with its accent apart at the end.
    std::string longest;
    for (int i = 0; i < 124; ++i) longest += "ä";
    longest += "e\u0301.txt";
    ASSERT_EQ(longest.size(), 255u);
    take(longest);
    const auto name = freeName(longest);
    EXPECT_EQ(wellFormed(name), name);
    std::string expected;
    for (int i = 0; i < 123; ++i) expected += "ä";
    EXPECT_EQ(name, expected + " (2).txt");
}

TEST_F(FreeName, isFoundForNamesThatAreNotText) {
    take("\xff\xfe.bin");
    EXPECT_EQ(freeName("\xff\xfe.bin"), "\xff\xfe (2).bin");
    const auto longest = std::string(255, '\xff');
    take(longest);
    EXPECT_LE(freeName(longest).size(), 255u);
    EXPECT_TRUE(freeName(longest).ends_with(" (2)"));
}

TEST_F(FreeName, hasNoUpperLimit) {
    take("a");
    for (int i = 2; i < 1'200; ++i) take("a (" + std::to_string(i) + ")");
    EXPECT_EQ(freeName("a"), "a (1200)");
}

class Transfer : public testing::Test {
  protected:
    Transfer() { files.addFolder("/folder"); }

    Moves transfer(std::vector<FileUrl> urls, TransferKind kind = TransferKind::move) {
        return FileOps::transfer(files, urls, FileUrl("/folder"), kind, unheard, {});
    }

    FakeFileManager files;
    const TransferReport unheard = [](const TransferProgress&) {};
};

TEST_F(Transfer, movesFilesInTheGivenOrder) {
    files.addFile("/b", {.contents = "bb", .allocated = 4'096});
    files.addFile("/a", {.contents = "a"});
    EXPECT_EQ(transfer({FileUrl("/b"), FileUrl("/a")}),
              (Moves{{FileUrl("/b"), FileUrl("/folder/b"), 4'096},
                     {FileUrl("/a"), FileUrl("/folder/a"), 1}}));
    EXPECT_FALSE(files.exists(FileUrl("/b")));
    EXPECT_EQ(files.contents("/folder/b"), "bb");
}

TEST_F(Transfer, copiesFiles) {
    files.addFile("/a", {.contents = "a"});
    EXPECT_EQ(transfer({FileUrl("/a")}, TransferKind::copy),
              (Moves{{FileUrl("/a"), FileUrl("/folder/a"), 1}}));
    EXPECT_EQ(files.contents("/a"), "a");
    EXPECT_EQ(files.contents("/folder/a"), "a");
}

TEST_F(Transfer, takesTheNextFreeName) {
    files.addFile("/a.txt", {.contents = "new"});
    files.addFile("/folder/a.txt", {.contents = "1"});
    files.addFile("/folder/a (2).txt", {.contents = "2"});
    ASSERT_EQ(transfer({FileUrl("/a.txt")}).size(), 1u);
    EXPECT_EQ(files.contents("/folder/a (3).txt"), "new");
    EXPECT_EQ(files.contents("/folder/a.txt"), "1");
    EXPECT_EQ(files.contents("/folder/a (2).txt"), "2");
}

TEST_F(Transfer, takesTheNextFreeNameWhereTheFirstIsTakenAtTheLastMoment) {
    files.addFile("/a.txt", {.contents = "new"});
    bool isTaken = false;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::move || std::exchange(isTaken, true)) return;
        files.addFile("/folder/a.txt", {.contents = "somebody's"});
    });
    ASSERT_EQ(transfer({FileUrl("/a.txt")}),
              (Moves{{FileUrl("/a.txt"), FileUrl("/folder/a (2).txt"), 3}}));
    EXPECT_EQ(files.contents("/folder/a.txt"), "somebody's");
}

TEST_F(Transfer, leavesAloneWhatIsThereAlready) {
    files.addFile("/folder/a");
    EXPECT_TRUE(transfer({FileUrl("/folder/a"), FileUrl("/folder/./sub/../a")}).empty());
    EXPECT_TRUE(files.exists(FileUrl("/folder/a")));
}

TEST_F(Transfer, skipsWhatFails) {
    files.addFile("/a");
    files.addFile("/locked");
    files.forbidChanges("/locked");
    const auto moves = transfer({FileUrl("/vanished"), FileUrl("/locked"), FileUrl("/a")});
    EXPECT_EQ(moves, (Moves{{FileUrl("/a"), FileUrl("/folder/a"), 0}}));
    EXPECT_TRUE(files.exists(FileUrl("/locked")));
}

TEST_F(Transfer, isOfNoAvailIntoAFolderThatIsGone) {
    files.addFile("/a");
    files.remove("/folder");
    EXPECT_TRUE(transfer({FileUrl("/a")}).empty());
    EXPECT_TRUE(files.exists(FileUrl("/a")));
}

TEST_F(Transfer, doesNotPutAFolderIntoItself) {
    files.addFile("/folder/sub/kept");
    EXPECT_TRUE(FileOps::transfer(files, {FileUrl("/folder")}, FileUrl("/folder/sub"),
                                  TransferKind::move, unheard, {})
                    .empty());
    EXPECT_TRUE(files.exists(FileUrl("/folder/sub/kept")));
}

TEST_F(Transfer, recordsNoSizeWhereItCannotBeRead) {
    files.addFolder("/sub");
    EXPECT_EQ(transfer({FileUrl("/sub")}), (Moves{{FileUrl("/sub"), FileUrl("/folder/sub"), 0}}));
}

TEST_F(Transfer, beginsNoFileAfterAStopRequest) {
    files.addFile("/a");
    files.addFile("/b");
    std::stop_source source;
    const auto stopAfterTheFirst = [&](const TransferProgress& progress) {
        if (progress.filesDone == 1) source.request_stop();
    };
    const auto moves = FileOps::transfer(files, {FileUrl("/a"), FileUrl("/b")}, FileUrl("/folder"),
                                         TransferKind::move, stopAfterTheFirst, source.get_token());
    EXPECT_EQ(moves.size(), 1u);
    EXPECT_TRUE(files.exists(FileUrl("/b")));
}

TEST(FreePlace, isAskedForOnceWhereItIsRefusedAsTakenAndYetFree) {
    const FakeFileManager files;
    int calls = 0;
    const auto place = [&](const FileUrl& url) -> Result<std::monostate> {
        ++calls;
        return FileError{std::make_error_code(std::errc::file_exists), url, "move"};
    };
    EXPECT_FALSE(FileOps::placeFreely(files, "a", FileUrl("/folder"), place));
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace nookwise
