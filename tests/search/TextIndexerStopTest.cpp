#include "tests/search/IndexerFixture.h"

#include <atomic>
#include <barrier>
#include <latch>
#include <thread>

namespace nookwise {
namespace {

class TextIndexerStop : public TextIndexerTest {
  protected:
    TextIndexer::Stop stop() const { return {soon.get_token(), atOnce.get_token()}; }

    std::stop_source soon;
    std::stop_source atOnce;
};

TEST_F(TextIndexerStop, readsFourFilesAtTheSameTime) {
    std::barrier together(4);
    reader.onCall([&](const auto&) { together.arrive_and_wait(); });
    run(documents(8));
    EXPECT_EQ(told.size(), 8u);
}

TEST_F(TextIndexerStop, readsNoMoreThanFourFilesAtTheSameTime) {
    std::atomic<int> begun = 0;
    const auto items = documents(20);
    // A chunk's files are all done before the next chunk's first one begins.
    reader.onCall([&](const FakeTextReader::Call& call) {
        const int number = begun++;
        const auto position =
            std::find_if(items.begin(), items.end(),
                         [&](const FileItem& item) { return item.url == call.url; }) -
            items.begin();
        EXPECT_EQ(number / 4, position / 4);
    });
    run(items);
    EXPECT_EQ(begun, 20);
}

TEST_F(TextIndexerStop, soonEndsBeforeTheNextChunk) {
    std::atomic<int> begun = 0;
    reader.onCall([&](const auto&) {
        if (++begun == 30) soon.request_stop();
    });
    EXPECT_EQ(savesOf(documents(100), stop()), 1);
    // The chunk that was being read was finished.
    EXPECT_EQ(reader.calls().size(), 32u);
    EXPECT_EQ(steps, (std::vector<Step>{{24, 24, 100}, {8, 32, 100}}));
    // What was read is kept.
    restart();
    EXPECT_EQ(indexer->cached(documents(100)).size(), 32u);
    run(documents(100));
    EXPECT_EQ(reader.calls().size(), 100u);
    EXPECT_EQ(steps.back(), (Step{20, 68, 68}));
}

TEST_F(TextIndexerStop, soonBeforeTheBeginningReadsNothing) {
    soon.request_stop();
    EXPECT_EQ(savesOf(documents(10), stop()), 0);
    EXPECT_TRUE(reader.calls().empty());
    EXPECT_TRUE(steps.empty());
}

TEST_F(TextIndexerStop, atOnceBeforeTheBeginningReadsNothing) {
    atOnce.request_stop();
    EXPECT_EQ(savesOf(documents(10), stop()), 0);
    EXPECT_TRUE(reader.calls().empty());
}

TEST_F(TextIndexerStop, fromTheProgressEndsBeforeTheNextChunk) {
    onProgress = [&] { soon.request_stop(); };
    run(documents(100), stop());
    EXPECT_EQ(steps.size(), 1u);
    EXPECT_EQ(reader.calls().size(), 24u);
}

TEST_F(TextIndexerStop, atOnceLeavesWhatIsBeingReadUnread) {
    // Two files of the second chunk are done when the others are stopped.
    std::latch done(2);
    reader.onCall([&](const FakeTextReader::Call& call) {
        const auto number = std::stoi(std::string(call.url.stem()));
        if (number < 4) return;
        if (number < 6) return done.count_down();
        done.wait();
        atOnce.request_stop();
    });
    const auto items = documents(12);
    EXPECT_EQ(savesOf(items, stop()), 1);
    EXPECT_EQ(steps.size(), 1u);
    EXPECT_EQ(reader.calls().size(), 8u);
    restart();
    const auto cached = indexer->cached(items);
    // The reader looks for a stop after the two were let go: they may have been stopped as well.
    EXPECT_GE(cached.size(), 4u);
    EXPECT_LE(cached.size(), 6u);
    for (int i = 6; i < 12; ++i)
        EXPECT_FALSE(cached.contains(items[static_cast<std::size_t>(i)].url)) << i;
    reader.onCall(nullptr);
    run(items);
    EXPECT_EQ(indexer->cached(items).size(), 12u);
}

TEST_F(TextIndexerStop, comesWithAReaderThatStopsByItself) {
    const auto items = documents(40);
    reader.fail("/home/user/Documents/5.png", std::errc::operation_canceled);
    EXPECT_EQ(savesOf(items), 1);
    // The other three of its chunk are kept.
    EXPECT_EQ(reader.calls().size(), 8u);
    EXPECT_EQ(steps, (std::vector<Step>{{7, 4, 40}}));
    EXPECT_EQ(indexer->cached(items).size(), 7u);
}

TEST_F(TextIndexerStop, letsTheNextRunGoOnWithoutReadingAnythingTwice) {
    const auto items = documents(40);
    std::latch begun(1);
    std::latch waiting(1);
    std::atomic<int> calls = 0;
    reader.onCall([&](const auto&) {
        if (calls++ > 0) return;
        begun.count_down();
        waiting.wait();
    });
    IndexEntries fresh;
    std::jthread first([&] {
        indexer->run(
            items, [](auto&&...) {}, stop());
    });
    begun.wait();
    std::jthread second([&] {
        indexer->run(
            items, [&](IndexEntries&& entries, std::size_t, std::size_t) { fresh.merge(entries); },
            {});
    });
    soon.request_stop();
    waiting.count_down();
    first.join();
    second.join();
    EXPECT_EQ(reader.calls().size(), 40u);
    EXPECT_EQ(indexer->cached(items).size(), 40u);
}

TEST_F(TextIndexerStop, isNoObstacleToAskingMeanwhile) {
    const auto items = documents(200);
    std::atomic<bool> isDone = false;
    std::size_t most = 0;
    std::jthread asking([&] {
        while (!isDone) {
            most = std::max(most, indexer->cached(items).size());
            indexer->save();
        }
    });
    run(items);
    isDone = true;
    asking.join();
    EXPECT_LE(most, 200u);
    restart();
    EXPECT_EQ(indexer->cached(items).size(), 200u);
}

}  // namespace
}  // namespace nookwise
