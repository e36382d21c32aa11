#include "tests/reader/ReaderPoolFixture.h"

#include <csignal>
#include <future>
#include <iterator>
#include <set>
#include <thread>
#include <vector>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

using ReaderPoolLife = ReaderPoolFixture;

std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(ReaderPoolLife, NothingIsStartedBeforeItIsNeeded) {
    makeReader();
    EXPECT_FALSE(hasChildren());
}

TEST_F(ReaderPoolLife, AProcessReadsOneFileAfterTheOther) {
    makeReader();
    const auto id = idOfProcess();
    EXPECT_EQ(text("say hello"), "hello");
    EXPECT_EQ(idOfProcess(), id);
}

TEST_F(ReaderPoolLife, AProcessOutlivesTheThreadForWhichItWasStarted) {
    makeReader();
    pid_t id = -1;
    std::jthread([&] { id = idOfProcess(); }).join();
    EXPECT_EQ(idOfProcess(), id);
}

TEST_F(ReaderPoolLife, AnIdleProcessIsEnded) {
    auto limits = patientLimits();
    limits.idle = 20ms;
    makeReader(limits);
    const auto id = idOfProcess();
    waitForEndOf(id);
    EXPECT_EQ(text("say hello"), "hello");
}

TEST_F(ReaderPoolLife, WithoutIdleTimeEveryFileCanHaveAProcessOfItsOwn) {
    auto limits = patientLimits();
    limits.idle = 0ms;
    makeReader(limits);
    for (int file = 0; file < 20; ++file) EXPECT_EQ(text("say hello"), "hello");
    waitForEndOf(idOfProcess());
}

TEST_F(ReaderPoolLife, AnIdleProcessThatDiesCostsNoFile) {
    makeReader(oneProcess());
    const auto id = idOfProcess();
    ASSERT_EQ(::kill(id, SIGKILL), 0);
    waitForEndOf(id);
    const auto next = idOfProcess();
    EXPECT_NE(next, id);
    // With room for one, its successor came after it was forgotten.
    EXPECT_NE(::kill(id, 0), 0);
}

TEST_F(ReaderPoolLife, WithRoomForOneProcessTextAndPicturesTakeTurns) {
    makeReader(oneProcess());
    for (int turn = 0; turn < 5; ++turn) {
        EXPECT_EQ(text("say hello"), "hello");
        EXPECT_TRUE(reader().pixelSize(file("say-bytes 1 1 0 0"), {}).value());
    }
}

TEST_F(ReaderPoolLife, FourProcessesWorkAtTheSameTimeAndAFifthCallWaitsForOne) {
    auto limits = patientLimits();
    limits.processesOfARole = 9;
    makeReader(limits);
    std::stop_source stop;
    std::set<pid_t> processes;
    std::vector<std::future<Result<std::string>>> calls;
    for (int call = 0; call < 4; ++call) {
        const auto [file, pipe] = hangingFileAndPipe();
        calls.push_back(std::async(std::launch::async, [this, file = file, &stop] {
            return reader().pdf(file, stop.get_token());
        }));
        processes.insert(idOfHanging(pipe));
    }
    EXPECT_EQ(processes.size(), 4U);
    const auto one = file("say-bytes 1 1 0 0");
    auto fifth = std::async(std::launch::async, [&] { return reader().pixelSize(one, {}); });
    waitUntilOpen(one);
    stop.request_stop();
    EXPECT_TRUE(fifth.get());
}

TEST_F(ReaderPoolLife, ManyCallersGetTheirOwnAnswers) {
    auto limits = patientLimits();
    limits.processes = limits.processesOfARole = 3;
    makeReader(limits);
    std::vector<FileUrl> files;
    for (int number = 0; number < 20; ++number)
        files.push_back(file("say " + std::to_string(number)));
    std::vector<std::jthread> callers;
    for (int caller = 0; caller < 8; ++caller) {
        callers.emplace_back([&] {
            for (int round = 0; round < 10; ++round)
                for (std::size_t number = 0; number < files.size(); ++number)
                    EXPECT_EQ(textOf(reader().pdf(files[number], {})), std::to_string(number));
        });
    }
}

TEST_F(ReaderPoolLife, NoDescriptorAndNoChildIsLeftBehind) {
    const auto before = openDescriptors();
    auto limits = oneProcess();
    limits.text.processorTime = 20ms;
    makeReader(limits);
    for (int round = 0; round < 5; ++round) {
        for (const auto* command :
             {"say hello", "say-with-file", "die", "be-killed", "spin", "say-bytes 0 0 1 2"})
            (void)pdf(command);
        (void)reader().thumbnail(file("say-bytes 1 1 4 4"), 10, {});
    }
    // The keeper's, and two for the process that is there.
    EXPECT_LE(openDescriptors(), before + 3);
    reader_.reset();
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_FALSE(hasChildren());
}

TEST_F(ReaderPoolLife, FailedStartsLeaveNothingBehind) {
    const auto before = openDescriptors();
    auto limits = patientLimits();
    limits.afterFailedStart = 0ms;
    for (const auto* program : {"stillborn", "stranger", "killed-at-start"}) {
        makeReader(limits, program);
        for (int round = 0; round < 5; ++round) EXPECT_FALSE(pdf("say hello"));
    }
    reader_ = std::make_unique<LinuxTextReader>(folder_.url("missing"), limits);
    for (int round = 0; round < 5; ++round) EXPECT_FALSE(pdf("say hello"));
    reader_.reset();
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_FALSE(hasChildren());
}

// It may still live by then, and even answer.
TEST_F(ReaderPoolLife, AProcessThatSaysThatItEndsIsHeardAndNotAskedAgain) {
    makeReader(oneProcess());
    const auto id = idOfProcess();
    EXPECT_EQ(text("say-id-and-end"), std::to_string(id));
    EXPECT_NE(text("say-id"), std::to_string(id));
}

}  // namespace
}  // namespace nookwise
