#include "tests/reader/ReaderPoolFixture.h"

#include <future>
#include <thread>
#include <vector>

namespace nookwise {
namespace {

class ReaderPoolStop : public ReaderPoolFixture {
  protected:
    std::future<Result<std::string>> reading(const FileUrl& url, const std::stop_token& stop) {
        return std::async(std::launch::async,
                          [&reader = reader(), url, stop] { return reader.pdf(url, stop); });
    }
    static void expectCancelled(const Result<std::string>& result) {
        ASSERT_FALSE(result);
        EXPECT_EQ(result.error().code, std::errc::operation_canceled);
    }
};

TEST_F(ReaderPoolStop, ACallThatWasStoppedBeforeItBeganStartsNothing) {
    makeReader();
    std::stop_source stop;
    stop.request_stop();
    expectCancelled(pdf("say hello", stop.get_token()));
    EXPECT_FALSE(hasChildren());
}

TEST_F(ReaderPoolStop, AStopEndsTheReadingAndItsProcess) {
    makeReader(oneProcess());
    const auto [file, pipe] = hangingFileAndPipe();
    std::stop_source stop;
    auto call = reading(file, stop.get_token());
    const auto process = idOfHanging(pipe);
    stop.request_stop();
    expectCancelled(call.get());
    waitForEndOf(process);
    EXPECT_EQ(text("say hello"), "hello");
}

TEST_F(ReaderPoolStop, AStoppedCallNamesItsFile) {
    makeReader();
    std::stop_source stop;
    stop.request_stop();
    const auto hello = file("say hello");
    EXPECT_EQ(reader().pdf(hello, stop.get_token()).error().url, hello);
}

TEST_F(ReaderPoolStop, AStopEndsTheWaitForAProcess) {
    makeReader(oneProcess());
    const auto [file, pipe] = hangingFileAndPipe();
    std::stop_source first;
    auto working = reading(file, first.get_token());
    idOfHanging(pipe);
    std::stop_source second;
    const auto hello = this->file("say hello");
    auto waiting = reading(hello, second.get_token());
    waitUntilOpen(hello);
    second.request_stop();
    expectCancelled(waiting.get());
    first.request_stop();
    expectCancelled(working.get());
}

TEST_F(ReaderPoolStop, AStopEndsTheWaitForAProcessThatDoesNotStart) {
    const auto door = folder_.makePipe("waiting-at-the-door.pipe");
    makeReader(patientLimits(), "waiting-at-the-door");
    std::stop_source stop;
    auto call = reading(file("say hello"), stop.get_token());
    const auto process = idOfHanging(door);
    stop.request_stop();
    expectCancelled(call.get());
    waitForEndOf(process);
}

TEST_F(ReaderPoolStop, AStopOfOneCallLeavesTheOthersAlone) {
    makeReader();
    const auto [file, pipe] = hangingFileAndPipe();
    std::stop_source stop;
    auto call = reading(file, stop.get_token());
    idOfHanging(pipe);
    EXPECT_EQ(text("say before"), "before");
    stop.request_stop();
    EXPECT_EQ(text("say after"), "after");
    expectCancelled(call.get());
}

TEST_F(ReaderPoolStop, TheEndOfTheReaderEndsWhatIsUnderWay) {
    makeReader();
    std::vector<std::future<Result<std::string>>> calls;
    for (int call = 0; call < 2; ++call) {
        const auto [file, pipe] = hangingFileAndPipe();
        calls.push_back(reading(file, {}));
        idOfHanging(pipe);
    }
    reader_.reset();
    for (auto& call : calls) expectCancelled(call.get());
    EXPECT_FALSE(hasChildren());
}

TEST_F(ReaderPoolStop, TheEndOfTheReaderEndsWhatNobodyUses) {
    makeReader();
    const auto process = idOfProcess();
    (void)reader().pixelSize(file("say-bytes 1 1 0 0"), {});
    EXPECT_TRUE(hasChildren());
    reader_.reset();
    EXPECT_FALSE(hasChildren());
    EXPECT_NE(::kill(process, 0), 0);
}

TEST_F(ReaderPoolStop, StopsAtAnyMomentLeaveTheReaderInOrder) {
    makeReader(oneProcess());
    const auto soon = file("say-soon x");
    std::vector<std::jthread> callers;
    for (int caller = 0; caller < 4; ++caller) {
        callers.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                std::stop_source stop;
                std::jthread stopper([&stop, round] {
                    for (int turn = 0; turn < round; ++turn) std::this_thread::yield();
                    stop.request_stop();
                });
                const auto result = reader().pdf(soon, stop.get_token());
                const auto isStopped =
                    !result && result.error().code == std::errc::operation_canceled;
                EXPECT_TRUE(isStopped || textOf(result) == "x") << textOf(result);
            }
        });
    }
    callers.clear();
    EXPECT_EQ(text("say hello"), "hello");
}

}  // namespace
}  // namespace nookwise
