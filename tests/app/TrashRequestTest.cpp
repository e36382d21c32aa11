#include "app/TrashRequest.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

std::vector<FileItem> filesOf(std::size_t count, std::int64_t size = 1'000'000) {
    std::vector<FileItem> files;
    for (std::size_t i = 0; i < count; ++i)
        files.push_back({.url = FileUrl("/" + std::to_string(i)), .size = size});
    return files;
}

std::string titleOf(std::size_t count, std::optional<PileKind> pile) {
    return trashRequest(filesOf(count), pile, "source").title;
}

TrashService::Trashed outcome(std::size_t moved, std::size_t failed) {
    TrashService::Trashed trashed;
    for (std::size_t i = 0; i < moved; ++i)
        trashed.moves.push_back({FileUrl("/a"), FileUrl("/b"), 1'000'000});
    for (std::size_t i = 0; i < failed; ++i) trashed.failed.emplace_back("/c");
    return trashed;
}

TEST(TrashRequestTest, asksByThePilesNoun) {
    EXPECT_EQ(titleOf(1, PileKind::large), "Move 1 file to the Trash?");
    EXPECT_EQ(titleOf(3, PileKind::large), "Move 3 large files to the Trash?");
    EXPECT_EQ(titleOf(3, std::nullopt), "Move 3 files to the Trash?");
    EXPECT_EQ(titleOf(2, PileKind::forgotten), "Move 2 downloads to the Trash?");
    EXPECT_EQ(titleOf(2, PileKind::installers), "Move 2 installers to the Trash?");
    EXPECT_EQ(titleOf(2, PileKind::screenshots), "Move 2 screenshots to the Trash?");
    EXPECT_EQ(titleOf(2, PileKind::duplicates), "Move 2 copies to the Trash?");
}

TEST(TrashRequestTest, explainsWhatComesBack) {
    EXPECT_EQ(trashRequest(filesOf(2, 1'500'000), PileKind::large, "Large files").detail,
              "3 MB goes back to your Mac. Nothing is erased — you can put them back from the "
              "Trash, or press ⌘Z right after.");
}

TEST(TrashRequestTest, keepsWhatItWasGiven) {
    const auto files = filesOf(3);
    const auto request = trashRequest(files, PileKind::large, "Large files");
    EXPECT_EQ(request.files, files);
    EXPECT_EQ(request.source, "Large files");
    EXPECT_EQ(request.pile, PileKind::large);
    EXPECT_NE(request.id, trashRequest(files, PileKind::large, "Large files").id);
}

TEST(TrashRequestTest, isRememberedByItsSource) {
    EXPECT_EQ(skipConfirmationKey("Old installers"), "skipConfirm.Old installers");
}

TEST(TrashOutcome, isTitledWithThePluralAlsoForOne) {
    EXPECT_EQ(trashedTitle(1, PileKind::duplicates), "Swept 1 copies");
    EXPECT_EQ(trashedTitle(12, PileKind::forgotten), "Swept 12 downloads");
    EXPECT_EQ(trashedTitle(1, std::nullopt), "Trashed 1 files");
}

TEST(TrashOutcome, isToldWithCountAndBytes) {
    EXPECT_EQ(trashedMessage(outcome(1, 0)), "1 file moved to Trash · 1 MB freed");
    EXPECT_EQ(trashedMessage(outcome(2, 0)), "2 files moved to Trash · 2 MB freed");
    EXPECT_EQ(trashedMessage(outcome(2, 3)), "2 files moved to Trash · 2 MB freed · 3 skipped");
}

TEST(TrashOutcome, thatIsNoneIsTold) {
    EXPECT_EQ(nothingTrashedMessage(1), "Couldn’t move 1 file to the Trash");
    EXPECT_EQ(nothingTrashedMessage(2), "Couldn’t move 2 files to the Trash");
    EXPECT_EQ(nothingTrashedMessage(0), "Couldn’t move 0 files to the Trash");
}

}  // namespace
}  // namespace nookwise
