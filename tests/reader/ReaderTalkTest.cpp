#include "platform/linux/ReaderJobRun.h"
#include "platform/linux/ReaderTalk.h"
#include "tests/reader/ReaderPoolFixture.h"

namespace nookwise {
namespace {

using namespace std::chrono_literals;

using Outcome = ReaderTalk::Outcome;

/// With a process that says nothing and takes nothing.
class ReaderTalkTest : public testing::Test {
  protected:
    ReaderTalkTest() {
        std::filesystem::create_symlink(NOOKWISE_FAKE_WORKER, folder_.path("silent"));
        auto process = ReaderProcess::start(folder_.url("silent"), "text", {});
        if (process) process_ = std::move(process.value());
    }
    ~ReaderTalkTest() override {
        if (!process_) return;
        endProcess();
        EXPECT_TRUE(process_->isGone());
    }
    void SetUp() override { ASSERT_TRUE(process_); }

    void endProcess() {
        process_->kill();
        pollfd watched{.fd = process_->handle(), .events = POLLIN, .revents = 0};
        while (::poll(&watched, 1, -1) <= 0) {
        }
    }
    static ReaderTalk talk(const ReaderProcess& process, const CallStop& stop,
                           std::chrono::nanoseconds limit = 1h) {
        return {process, stop, limit, limit};
    }

    static constexpr int notOpen = 1'000'000;

    TemporaryFolder folder_;
    std::optional<ReaderProcess> process_;
    std::stop_source stopping_;
    const CallStop stop_{stopping_.get_token(), {}};
    const ReaderRequest request_;
};

TEST_F(ReaderTalkTest, WhatCameInTimeIsNotTooLateForBeingSeenLate) {
    endProcess();
    EXPECT_EQ(talk(*process_, stop_, 0ns).waitForEnd(), Outcome::done);
}

TEST_F(ReaderTalkTest, AStopThatCameInTimeIsNotTooLateEither) {
    stopping_.request_stop();
    EXPECT_EQ(talk(*process_, stop_, 0ns).waitForEnd(), Outcome::stopped);
}

TEST_F(ReaderTalkTest, WhatDidNotComeInTimeOverran) {
    char byte = 0;
    EXPECT_EQ(talk(*process_, stop_, 0ns).waitForEnd(), Outcome::overran);
    EXPECT_EQ(talk(*process_, stop_, 0ns).receive(&byte, sizeof byte), Outcome::overran);
}

TEST_F(ReaderTalkTest, AProcessThatHasEndedHungUp) {
    endProcess();
    char byte = 0;
    EXPECT_EQ(talk(*process_, stop_).send(&request_, sizeof request_, -1), Outcome::hungUp);
    EXPECT_EQ(talk(*process_, stop_).receive(&byte, sizeof byte), Outcome::hungUp);
}

TEST_F(ReaderTalkTest, WhatTheSystemDoesNotTakeIsNotTheProcessHangingUp) {
    EXPECT_EQ(talk(*process_, stop_).send(&request_, sizeof request_, notOpen), Outcome::notSent);
}

TEST_F(ReaderTalkTest, WhatTheProcessLeavesNoRoomForIsNotSent) {
    auto outcome = Outcome::done;
    while (outcome == Outcome::done)
        outcome = talk(*process_, stop_).send(&request_, sizeof request_, -1);
    EXPECT_EQ(outcome, Outcome::notSent);
}

TEST_F(ReaderTalkTest, OfAFileThatCouldNotBeHandedOverNothingWasLearnt) {
    const ReaderJobLimits limits{.processorTime = 1h, .elapsedTime = 1h, .reply = 1'000};
    const auto result = runReaderJob(*process_, request_, notOpen, limits, stop_);
    EXPECT_EQ(result.kind, ReaderJobResult::Kind::lost);
}

}  // namespace
}  // namespace nookwise
