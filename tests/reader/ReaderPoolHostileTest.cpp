#include "tests/reader/ReaderPoolFixture.h"

#include <thread>

#include <pthread.h>
#include <sched.h>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

/// With one process, so that whatever is left of it would be noticed by the next file.
class ReaderPoolHostile : public ReaderPoolFixture {
  protected:
    ReaderPoolHostile() { makeReader(oneProcess()); }

    /// Reads the file, and expects that it costs the process and nothing else.
    void expectCostsTheProcess(const std::string& command) {
        const auto before = idOfProcess();
        EXPECT_EQ(text(command), "") << command;
        EXPECT_NE(idOfProcess(), before) << command;
    }
    void expectNoThumbnail(const std::string& command, std::int32_t longestSide) {
        const auto picture = reader().thumbnail(file(command), longestSide, {});
        ASSERT_TRUE(picture) << command;
        EXPECT_EQ(picture.value(), std::nullopt) << command;
    }
    void expectNoSize(const std::string& command) {
        const auto size = reader().pixelSize(file(command), {});
        ASSERT_TRUE(size) << command;
        EXPECT_EQ(size.value(), std::nullopt) << command;
    }
};

TEST_F(ReaderPoolHostile, AProcessThatDiesOfAFileCostsThatFile) {
    for (const auto* command : {"die", "crash", "break-rules", "no such command"})
        expectCostsTheProcess(command);
}

TEST_F(ReaderPoolHostile, AProcessThatStopsInTheMiddleOfItsReplyCostsThatFile) {
    auto limits = oneProcess();
    limits.text.elapsedTime = 50ms;
    makeReader(limits);
    for (const auto* command : {"say-half-a-header", "say-bytes 0 0 1000 10"})
        expectCostsTheProcess(command);
}

TEST_F(ReaderPoolHostile, AProcessThatHangsIsEndedAfterTheTimeLimit) {
    auto limits = oneProcess();
    limits.text.elapsedTime = 50ms;
    makeReader(limits);
    expectCostsTheProcess("hang");
}

TEST_F(ReaderPoolHostile, AProcessThatHangsUpAndLivesOnIsEndedAfterTheTimeLimit) {
    auto limits = oneProcess();
    limits.text.elapsedTime = 50ms;
    makeReader(limits);
    expectCostsTheProcess("hang-up");
}

TEST_F(ReaderPoolHostile, AProcessThatKeepsSendingIsEndedAfterTheTimeLimit) {
    auto limits = oneProcess();
    limits.text.elapsedTime = 50ms;
    makeReader(limits);
    expectCostsTheProcess("drip");
}

TEST_F(ReaderPoolHostile, AProcessThatComputesForEverIsEndedAfterTheProcessorTime) {
    auto limits = oneProcess();
    limits.text.processorTime = 50ms;
    makeReader(limits);
    expectCostsTheProcess("spin");
}

TEST_F(ReaderPoolHostile, TheProcessorTimeOfEarlierFilesDoesNotCount) {
    auto limits = oneProcess();
    limits.text.processorTime = 500ms;
    makeReader(limits);
    const auto before = idOfProcess();
    // 3 ms each.
    for (int file = 0; file < 250; ++file) ASSERT_EQ(text("say-soon x"), "x") << file;
    EXPECT_EQ(idOfProcess(), before);
}

TEST_F(ReaderPoolHostile, PicturesHaveLimitsOfTheirOwn) {
    auto limits = oneProcess();
    limits.pictures.elapsedTime = 50ms;
    makeReader(limits);
    expectNoThumbnail("hang", 100);
    limits = oneProcess();
    limits.pictures.processorTime = 50ms;
    makeReader(limits);
    expectNoSize("spin");
}

TEST_F(ReaderPoolHostile, TimeSpentWaitingForAProcessorDoesNotCount) {
    auto limits = oneProcess();
    limits.text.elapsedTime = 600ms;
    makeReader(limits);
    // Without a CPU 0 for this process there is no competition, and nothing to see.
    std::jthread busy([](const std::stop_token& stop) {
        cpu_set_t first{};
        CPU_SET(0, &first);
        ::pthread_setaffinity_np(::pthread_self(), sizeof first, &first);
        while (!stop.stop_requested()) {
        }
    });
    EXPECT_EQ(text("burn-in-the-shade"), "done at last");
}

TEST_F(ReaderPoolHostile, ATextLongerThanAllowedIsNotTaken) {
    expectCostsTheProcess("say-bytes 0 0 1000001 0");
    expectCostsTheProcess("say-bytes 0 0 18446744073709551615 0");
    EXPECT_EQ(text("say-bytes 0 0 1000000 1000000"), std::string(1'000'000, 'x'));
}

TEST_F(ReaderPoolHostile, ATextHasNoSize) {
    expectCostsTheProcess("say-bytes 1 1 4 4");
    expectCostsTheProcess("say-bytes 0 1 4 4");
    expectCostsTheProcess("say-bytes -1 0 4 4");
}

TEST_F(ReaderPoolHostile, BytesAfterTheReplyCostTheFile) {
    expectCostsTheProcess("say-bytes 0 0 4 5");
    expectCostsTheProcess("say-bytes 0 0 0 1");
}

TEST_F(ReaderPoolHostile, AThumbnailWhoseFiguresDisagreeIsNone) {
    // Wrong length, wrong sides, longer than asked for, negative, overflowing, longer than allowed.
    for (const auto* command :
         {"say-bytes 3 2 23 23", "say-bytes 3 2 25 25", "say-bytes 0 0 4 4", "say-bytes 0 2 0 0",
          "say-bytes 3 0 0 0", "say-bytes 101 1 404 404", "say-bytes 1 101 404 404",
          "say-bytes -3 -2 24 24", "say-bytes -1 1 18446744073709551612 8"})
        expectNoThumbnail(command, 100);
    expectNoThumbnail("say-bytes 2147483647 2147483647 4 4", 2'147'483'647);
    expectNoThumbnail("say-bytes 1000 1000 4000000 0", 1000);
    EXPECT_TRUE(reader().thumbnail(file("say-bytes 100 1 400 400"), 100, {}).value());
}

TEST_F(ReaderPoolHostile, APixelSizeWhoseFiguresDisagreeIsNone) {
    for (const auto* command : {"say-bytes 0 1 0 0", "say-bytes 1 0 0 0", "say-bytes -1 -1 0 0",
                                "say-bytes 10 10 4 4", "say-bytes 10 10 0 1"})
        expectNoSize(command);
    EXPECT_TRUE(reader().pixelSize(file("say-bytes 1 1 0 0"), {}).value());
}

TEST_F(ReaderPoolHostile, AProcessThatOthersKilledSaysNothingAboutItsFile) {
    const auto marker = folder_.url("marker");
    EXPECT_EQ(text("be-killed-once " + std::string(marker.path())), "survived");
    const auto other = folder_.url("other marker");
    EXPECT_EQ(text("be-terminated-once " + std::string(other.path())), "survived");
}

TEST_F(ReaderPoolHostile, AFileWhoseProcessIsKilledTwiceIsAnErrorOfThatFile) {
    const auto killed = file("be-killed");
    const auto result = reader().pdf(killed, {});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, std::errc::resource_unavailable_try_again);
    EXPECT_EQ(result.error().url, killed);
    EXPECT_EQ(text("say next"), "next");
}

}  // namespace
}  // namespace nookwise
