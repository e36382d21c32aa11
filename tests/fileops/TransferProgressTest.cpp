#include "fileops/FileOps.h"
#include "tests/support/FakeFileManager.h"

#include <algorithm>
#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr std::int64_t piece = 4'194'304;

class ReportedTransfer : public testing::Test {
  protected:
    ReportedTransfer() {
        files.addFile("/a", {.size = 10'000'000});
        files.addFile("/b", {.size = 3'000'000});
        files.addFile("/folder/c", {.size = 2'000'000});
        files.addFile("/folder/sub/d", {.size = 1'000'000});
        files.addFolder("/here");
        files.addFolder("/disk");
        files.makeVolume("/disk");
    }

    std::vector<ActivityEntry::Move> transfer(std::vector<std::string_view> paths,
                                              TransferKind kind, std::string_view folder) {
        std::vector<FileUrl> urls;
        for (const auto path : paths) urls.emplace_back(path);
        const auto report = [&](const TransferProgress& progress) {
            reports.push_back(progress);
            if (reports.size() == endsAtReport) stop.request_stop();
        };
        return FileOps::transfer(files, urls, FileUrl(folder), kind, report, stop.get_token());
    }

    /// That no figure ever goes back, nothing is more than all, and all is done in the end.
    void expectSound(std::size_t count) const {
        TransferProgress last{.filesTotal = count};
        for (const auto& report : reports) {
            EXPECT_GE(report.filesDone, last.filesDone);
            EXPECT_GE(report.bytesDone, last.bytesDone);
            EXPECT_EQ(report.filesTotal, count);
            if (report.bytesTotal) {
                EXPECT_LE(report.bytesDone, *report.bytesTotal);
            }
            last = report;
        }
        EXPECT_EQ(last.filesDone, count);
        if (last.bytesTotal) {
            EXPECT_EQ(last.bytesDone, *last.bytesTotal);
        }
    }

    FakeFileManager files;
    std::stop_source stop;
    std::size_t endsAtReport = 0;
    std::vector<TransferProgress> reports;
};

TEST_F(ReportedTransfer, knowsAllBytesBeforeTheFirstIsCopied) {
    transfer({"/a", "/b"}, TransferKind::copy, "/here");
    const auto at = [](std::size_t done, std::int64_t bytes) {
        return TransferProgress{done, 2, bytes, 13'000'000};
    };
    EXPECT_EQ(reports,
              (std::vector<TransferProgress>{
                  at(0, 0), at(0, piece), at(0, 2 * piece), at(0, 10'000'000), at(1, 10'000'000),
                  at(1, 10'000'000), at(1, 13'000'000), at(2, 13'000'000)}));
}

TEST_F(ReportedTransfer, countsFilesOnlyWhileItRenames) {
    transfer({"/a", "/folder"}, TransferKind::move, "/here");
    EXPECT_EQ(reports,
              (std::vector<TransferProgress>{{1, 2, 0, std::nullopt}, {2, 2, 0, std::nullopt}}));
}

TEST_F(ReportedTransfer, countsWhatAMoveToAnotherVolumeCopies) {
    transfer({"/a", "/b"}, TransferKind::move, "/disk");
    expectSound(2);
    EXPECT_EQ(reports.back().bytesTotal, 13'000'000);
}

TEST_F(ReportedTransfer, learnsTheBytesOfAFolderAsItIsCopied) {
    transfer({"/folder", "/b"}, TransferKind::copy, "/here");
    expectSound(2);
    EXPECT_EQ(reports.front(), (TransferProgress{0, 2, 0, 6'000'000}));
}

TEST_F(ReportedTransfer, doesNotCountALaterFolderBeforehand) {
    transfer({"/a", "/folder"}, TransferKind::copy, "/here");
    expectSound(2);
    for (const auto& report : reports) EXPECT_EQ(report.bytesTotal, std::nullopt);
    EXPECT_EQ(reports.back().bytesDone, 13'000'000);
}

TEST_F(ReportedTransfer, leavesOutWhatFailsOrIsThereAlready) {
    files.addFile("/here/there already", {.size = 7'000'000});
    files.addFile("/unreadable", {.size = 5'000'000});
    files.makeUnreadable("/unreadable");
    transfer({"/b", "/here/there already", "/unreadable", "/vanished"}, TransferKind::copy,
             "/here");
    expectSound(4);
    EXPECT_EQ(reports.back().bytesTotal, 3'000'000);
}

TEST_F(ReportedTransfer, staysSoundWhereAFileGrowsOrTheCopyIsMadeTwice) {
    bool isTaken = false;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::copyPiece || std::exchange(isTaken, true))
            return;
        files.addFile("/here/a", {.contents = "somebody's"});
        files.addFile("/b", {.size = 30'000'000});
    });
    const auto moves = transfer({"/a", "/b"}, TransferKind::copy, "/here");
    ASSERT_EQ(moves.size(), 2u);
    EXPECT_EQ(moves.front().inTrash, FileUrl("/here/a (2)"));
    expectSound(2);
    EXPECT_EQ(reports.back().bytesDone, 50'000'000);
}

TEST_F(ReportedTransfer, survivesFilesThatAreLongerThanCanBeCounted) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    files.addFile("/huge", {.size = most});
    files.addFile("/huge too", {.size = most});
    endsAtReport = 2;
    EXPECT_TRUE(transfer({"/huge", "/huge too"}, TransferKind::copy, "/here").empty());
    EXPECT_EQ(reports.front().bytesTotal, most);
}

TEST_F(ReportedTransfer, endsInsideAFile) {
    endsAtReport = 3;
    EXPECT_TRUE(transfer({"/a", "/b"}, TransferKind::move, "/disk").empty());
    EXPECT_TRUE(files.exists(FileUrl("/a")));
    EXPECT_FALSE(files.exists(FileUrl("/disk/a")));
    EXPECT_FALSE(files.exists(FileUrl("/disk/b")));
    EXPECT_EQ(reports.back().bytesDone, 2 * piece);
}

/// Sums up a package for as long as nobody stops it.
class EndlessPackages : public FakeFileManager {
  public:
    using FakeFileManager::attributes;
    Result<FileAttributes> attributes(const FileUrl& url, std::stop_token token) const override {
        auto found = FakeFileManager::attributes(url, token);
        if (!found || found.value().type != FileType::package) return found;
        EXPECT_TRUE(token.stop_possible()) << "it would go on for ever";
        onPackage();
        EXPECT_TRUE(token.stop_requested());
        return FileError{std::make_error_code(std::errc::operation_canceled), url, "look at"};
    }

    std::function<void()> onPackage;
};

TEST(ATransferOfPackages, endsWhileTheirSizesAreSummedUp) {
    for (const auto& urls :
         {std::vector{FileUrl("/Big.app")}, std::vector{FileUrl("/a"), FileUrl("/Big.app")}}) {
        EndlessPackages files;
        std::stop_source stop;
        files.onPackage = [&] { stop.request_stop(); };
        files.addPackage("/Big.app");
        files.addFile("/a", {.size = 10'000'000});
        files.addFolder("/here");
        const auto moves = FileOps::transfer(
            files, urls, FileUrl("/here"), TransferKind::copy, [](const TransferProgress&) {},
            stop.get_token());
        EXPECT_TRUE(moves.empty());
        EXPECT_TRUE(stop.stop_requested()) << "the package's size was asked for";
        EXPECT_FALSE(files.exists(FileUrl("/here/Big.app")));
    }
}

TEST_F(ReportedTransfer, keepsWhatWasDoneBeforeItEnded) {
    endsAtReport = 6;
    const auto moves = transfer({"/b", "/a", "/folder"}, TransferKind::copy, "/here");
    ASSERT_EQ(moves.size(), 1u);
    EXPECT_EQ(moves.front().original, FileUrl("/b"));
    EXPECT_TRUE(files.exists(FileUrl("/here/b")));
    EXPECT_FALSE(files.exists(FileUrl("/here/a")));
}

}  // namespace
}  // namespace nookwise
