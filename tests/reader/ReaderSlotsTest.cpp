#include "platform/linux/ReaderSlots.h"
#include "platform/linux/ReaderTalk.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

using State = ReaderSlot::State;

class ReaderSlotsTest : public testing::Test {
  protected:
    ~ReaderSlotsTest() override {
        for (auto& slot : slots_.all())
            if (!slot.process) start(slot);
        slots_.endAll();
        while (!slots_.all().empty()) slots_.tidy(now_);
    }

    static void start(ReaderSlot& slot) {
        auto process = ReaderProcess::start(FileUrl(NOOKWISE_FAKE_WORKER), "text", {});
        ASSERT_TRUE(process);
        slot.process = std::move(process.value());
        ReaderGreeting greeting;
        ASSERT_EQ(::recv(slot.process->socket(), &greeting, sizeof greeting, MSG_WAITALL),
                  static_cast<ssize_t>(sizeof greeting));
        slot.state = State::lent;
    }

    ReaderSlot* obtain(ReaderRole role, ReaderSlots::Ticket ticket) {
        auto* slot = slots_.obtain(role, ticket, now_);
        if (slot != nullptr) slots_.leave(role, ticket);
        if (slot != nullptr && slot->state == State::wanted) start(*slot);
        return slot;
    }
    ReaderSlot* obtain(ReaderRole role) { return obtain(role, slots_.join(role)); }

    void takeBack(ReaderSlot* slot) {
        slot->state = State::idle;
        slot->idleSince = now_;
    }
    void waitUntilGone(const ReaderSlot* slot) {
        waitFor(slot->process->handle());
        slots_.tidy(now_);
        for (const auto& other : slots_.all()) ASSERT_NE(&other, slot);
    }
    static void waitFor(int descriptor) {
        pollfd watched{.fd = descriptor, .events = POLLIN, .revents = 0};
        while (::poll(&watched, 1, -1) <= 0) {
        }
    }

    static constexpr auto text = ReaderRole::text;
    static constexpr auto pictures = ReaderRole::pictures;
    static ReaderLimits limits(std::size_t processesOfARole = 2) {
        ReaderLimits limits;
        limits.processes = 2;
        limits.processesOfARole = processesOfARole;
        limits.idle = 10s;
        limits.afterFailedStart = 30s;
        return limits;
    }
    ReaderSlots slots_{limits()};
    ReaderSlots::Time now_{1000s};
};

TEST_F(ReaderSlotsTest, AProcessThatIsTakenBackIsLentAgain) {
    auto* first = obtain(text);
    ASSERT_NE(first, nullptr);
    takeBack(first);
    EXPECT_EQ(obtain(text), first);
    EXPECT_EQ(slots_.all().size(), 1U);
}

TEST_F(ReaderSlotsTest, TextAndPicturesNeverShareAProcess) {
    auto* first = obtain(text);
    takeBack(first);
    auto* second = obtain(pictures);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->role, pictures);
}

TEST_F(ReaderSlotsTest, NoMoreProcessesAreStartedThanThereMayBe) {
    slots_ = ReaderSlots(limits(9));
    obtain(text);
    auto* second = obtain(text);
    ASSERT_NE(second, nullptr);
    const auto third = slots_.join(text);
    const auto picture = slots_.join(pictures);
    EXPECT_EQ(obtain(text, third), nullptr);
    EXPECT_EQ(obtain(pictures, picture), nullptr);
    slots_.leave(pictures, picture);
    takeBack(second);
    EXPECT_EQ(obtain(text, third), second);
}

TEST_F(ReaderSlotsTest, NoMoreProcessesAreStartedForARoleThanItMayHave) {
    slots_ = ReaderSlots(limits(1));
    ASSERT_NE(obtain(text), nullptr);
    EXPECT_EQ(obtain(text), nullptr);
    EXPECT_NE(obtain(pictures), nullptr);
}

TEST_F(ReaderSlotsTest, WhoComesFirstIsServedFirst) {
    auto* first = obtain(text);
    auto* second = obtain(text);
    const auto early = slots_.join(text);
    const auto late = slots_.join(text);
    EXPECT_EQ(obtain(text, early), nullptr);
    takeBack(first);
    EXPECT_EQ(obtain(text, late), nullptr);
    EXPECT_EQ(obtain(text, early), first);
    takeBack(second);
    EXPECT_EQ(obtain(text, late), second);
}

TEST_F(ReaderSlotsTest, WhoLeavesTheLineHoldsNobodyUp) {
    auto* first = obtain(text);
    obtain(text);
    const auto early = slots_.join(text);
    const auto late = slots_.join(text);
    takeBack(first);
    slots_.leave(text, early);
    EXPECT_EQ(obtain(text, late), first);
}

TEST_F(ReaderSlotsTest, WhatIsIdleMakesRoomForTheOtherRole) {
    auto* first = obtain(text);
    obtain(text);
    takeBack(first);
    const auto picture = slots_.join(pictures);
    EXPECT_EQ(obtain(pictures, picture), nullptr);
    EXPECT_EQ(first->state, State::ending);
    waitUntilGone(first);
    EXPECT_NE(obtain(pictures, picture), nullptr);
}

TEST_F(ReaderSlotsTest, PicturesComeBeforeTextThatWaitedLonger) {
    auto* first = obtain(text);
    auto* second = obtain(text);
    const auto early = slots_.join(text);
    const auto picture = slots_.join(pictures);
    takeBack(first);
    EXPECT_EQ(obtain(text, early), nullptr);
    EXPECT_EQ(obtain(pictures, picture), nullptr);
    // Room is being made with the first; the second is not needed for that.
    takeBack(second);
    EXPECT_EQ(obtain(pictures, picture), nullptr);
    EXPECT_EQ(second->state, State::idle);
    EXPECT_EQ(obtain(text, early), second);
    waitUntilGone(first);
    EXPECT_EQ(obtain(text, slots_.join(text)), nullptr);
    EXPECT_NE(obtain(pictures, picture), nullptr);
}

TEST_F(ReaderSlotsTest, PicturesThatHaveAllTheirProcessesLeaveTheRestToText) {
    slots_ = ReaderSlots(limits(1));
    obtain(pictures);
    const auto picture = slots_.join(pictures);
    EXPECT_EQ(obtain(pictures, picture), nullptr);
    EXPECT_NE(obtain(text), nullptr);
}

TEST_F(ReaderSlotsTest, AProcessIsEndedWhenItHasBeenIdleLongEnough) {
    auto* slot = obtain(text);
    EXPECT_EQ(slots_.nextIdleEnd(), std::nullopt);
    takeBack(slot);
    EXPECT_EQ(slots_.nextIdleEnd(), now_ + 10s);
    slots_.tidy(now_ + 9s);
    EXPECT_EQ(slot->state, State::idle);
    now_ += 10s;
    slots_.tidy(now_);
    waitUntilGone(slot);
}

TEST_F(ReaderSlotsTest, AProcessThatIsLentIsNeverIdle) {
    auto* slot = obtain(text);
    slots_.tidy(now_ + 1h);
    EXPECT_EQ(slot->state, State::lent);
}

TEST_F(ReaderSlotsTest, AnIdleProcessThatDiedIsNotLent) {
    auto* slot = obtain(text);
    takeBack(slot);
    slot->process->kill();
    waitFor(slot->process->handle());
    auto* next = obtain(text);
    ASSERT_NE(next, nullptr);
    EXPECT_NE(next, slot);
}

TEST_F(ReaderSlotsTest, AProcessThatSpeaksUnaskedIsNotLent) {
    const TemporaryFolder folder;
    const auto hello = openPath(folder.write("hello", "say hello").path(), O_RDONLY);
    auto* slot = obtain(text);
    const CallStop never({}, {});
    const ReaderRequest request;
    ReaderTalk talk(*slot->process, never, 1h, 1h);
    ASSERT_EQ(talk.send(&request, sizeof request, hello.get()), ReaderTalk::Outcome::done);
    waitFor(slot->process->socket());
    takeBack(slot);
    auto* next = obtain(text);
    ASSERT_NE(next, nullptr);
    EXPECT_NE(next, slot);
    EXPECT_EQ(slot->state, State::ending);
}

TEST_F(ReaderSlotsTest, AfterAFailedStartOnlyWhatIsThereIsWaitedFor) {
    auto* slot = obtain(text);
    slots_.noteFailedStart({.code = std::make_error_code(std::errc::io_error)}, now_);
    EXPECT_EQ(slots_.refusal(text, now_), nullptr);
    ASSERT_NE(slots_.refusal(pictures, now_), nullptr);
    EXPECT_EQ(slots_.refusal(pictures, now_)->code, std::errc::io_error);
    EXPECT_EQ(obtain(text, slots_.join(text)), nullptr);
    slots_.end(*slot);
    EXPECT_NE(slots_.refusal(text, now_), nullptr);
    now_ += 30s;
    EXPECT_EQ(slots_.refusal(text, now_), nullptr);
}

}  // namespace
}  // namespace nookwise
