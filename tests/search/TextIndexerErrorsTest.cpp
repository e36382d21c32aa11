#include "tests/search/IndexerFixture.h"

#include <atomic>

namespace nookwise {
namespace {

/// Files about which the reader learns nothing.
class TextIndexerErrors : public TextIndexerTest {
  protected:
    static std::string document(int number) {
        return "/home/user/Documents/" + std::to_string(number) + ".png";
    }
    /// No file can be read from the call on that has that number.
    void refuseFrom(int first) {
        calls = 0;
        reader.onCall([this, first](const auto&) {
            if (calls++ == first) reader.failAll(std::errc::resource_unavailable_try_again);
        });
    }

    std::atomic<int> calls = 0;
};

TEST_F(TextIndexerErrors, leaveTheirFilesUnreadAndTheOthersAlone) {
    const auto items = documents(40);
    reader.fail(document(5), std::errc::resource_unavailable_try_again);
    reader.fail(document(39), std::errc::io_error);
    EXPECT_EQ(savesOf(items), 1);
    // The first batch is full one chunk later.
    EXPECT_EQ(steps, (std::vector<Step>{{27, 28, 40}, {11, 40, 40}}));
    EXPECT_EQ(told.size(), 38u);
    EXPECT_EQ(textOf(document(5)), "(none)");
    restart();
    EXPECT_EQ(indexer->cached(items).size(), 38u);
}

TEST_F(TextIndexerErrors, areTriedAgainByTheNextRun) {
    reader.setOcr(document(5), "Receipt");
    reader.fail(document(5), std::errc::resource_unavailable_try_again);
    run(documents(40));
    reader.allow(document(5));
    run(documents(40));
    EXPECT_EQ(reader.calls().size(), 41u);
    EXPECT_EQ(steps.back(), (Step{1, 1, 1}));
    EXPECT_EQ(textOf(document(5)), "Receipt");
}

TEST_F(TextIndexerErrors, ofAFileThatIsTrashedDuringTheRunEndWhenItIsPutBack) {
    reader.setOcr(document(30), "Boarding pass");
    onProgress = [&] { reader.fail(document(30), std::errc::no_such_file_or_directory); };
    run(documents(40));
    EXPECT_EQ(steps.back(), (Step{15, 40, 40}));
    EXPECT_EQ(textOf(document(30)), "(none)");
    // With the date of change that it had.
    reader.allow(document(30));
    onProgress = nullptr;
    restart();
    run(documents(40));
    EXPECT_EQ(textOf(document(30)), "Boarding pass");
}

TEST_F(TextIndexerErrors, ofAnyNumberOfFilesThatWereTrashedEndNoRun) {
    const auto items = documents(200);
    for (int number = 0; number < 199; ++number)
        reader.fail(document(number), std::errc::no_such_file_or_directory);
    reader.setOcr(document(199), "The last one");
    run(items);
    EXPECT_EQ(steps, (std::vector<Step>{{1, 200, 200}}));
    EXPECT_EQ(textOf(document(199)), "The last one");
}

TEST_F(TextIndexerErrors, ofEveryFileStillTellThatTheRunIsThrough) {
    for (int number = 0; number < 10; ++number) reader.fail(document(number), std::errc::io_error);
    EXPECT_EQ(savesOf(documents(10)), 0);
    EXPECT_EQ(steps, (std::vector<Step>{{0, 10, 10}}));
}

TEST_F(TextIndexerErrors, doNotPutOffTheNextSave) {
    for (int number = 0; number < 240; number += 5)
        reader.fail(document(number), std::errc::io_error);
    // Batches end at other numbers than without errors; a save is never further than one away.
    EXPECT_EQ(savesOf(documents(240)), 2);
}

TEST_F(TextIndexerErrors, endTheRunSoonWhenThereIsNoReader) {
    reader.failAll(std::errc::no_such_file_or_directory);
    EXPECT_EQ(savesOf(documents(40)), 0);
    EXPECT_EQ(reader.calls().size(), 12u);
    EXPECT_TRUE(steps.empty());
    EXPECT_TRUE(indexer->cached(documents(40)).empty());
}

TEST_F(TextIndexerErrors, thatEndTheRunLeaveNothingUntold) {
    refuseFrom(32);
    EXPECT_EQ(savesOf(documents(100)), 1);
    EXPECT_EQ(reader.calls().size(), 44u);
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps.front(), (Step{24, 24, 100}));
    EXPECT_EQ(steps.back().done, 44u);
    EXPECT_EQ(steps.back().total, 100u);
    // Others of the chunk in which it began may have got through.
    EXPECT_GE(told.size(), 32u);
    EXPECT_LE(told.size(), 35u);
    restart();
    EXPECT_EQ(indexer->cached(documents(100)).size(), told.size());
    reader.onCall(nullptr);
    reader.failAll(std::nullopt);
    run(documents(100));
    EXPECT_EQ(told.size(), 100u);
}

TEST_F(TextIndexerErrors, ofTwoChunksMayBeChance) {
    calls = 0;
    reader.onCall([this](const FakeTextReader::Call& call) {
        const auto number = std::stoi(std::string(call.url.stem()));
        // Of three chunks, the first and the second.
        const bool isRefused = number / 4 % 3 != 2;
        reader.failAll(isRefused ? std::optional(std::errc::timed_out) : std::nullopt);
    });
    run(documents(36));
    EXPECT_EQ(reader.calls().size(), 36u);
    EXPECT_EQ(steps, (std::vector<Step>{{12, 36, 36}}));
}

TEST_F(TextIndexerErrors, areNotMetByFilesThatNeedNoReader) {
    reader.failAll(std::errc::no_such_file_or_directory);
    run(downloads(10));
    EXPECT_EQ(steps, (std::vector<Step>{{10, 10, 10}}));
}

TEST_F(TextIndexerErrors, areNotOutweighedByFilesThatNeedNoReader) {
    // One picture, and three downloads in its chunk.
    auto items = documents(9);
    for (auto& file : downloads(40)) items.push_back(std::move(file));
    reader.failAll(std::errc::no_such_file_or_directory);
    run(items);
    EXPECT_EQ(steps, (std::vector<Step>{{3, 12, 49}}));
}

}  // namespace
}  // namespace nookwise
