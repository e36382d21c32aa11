#include "platform/linux/ReaderPool.h"
#include "tests/reader/ReaderPoolFixture.h"

#include <atomic>
#include <barrier>
#include <thread>
#include <vector>

namespace nookwise {
namespace {

TEST(ReaderPoolLoans, TwoProcessesThatComeBackAtOnceAreForBothWhoWait) {
    constexpr int rounds = 200;
    auto limits = patientLimits();
    limits.processes = limits.processesOfARole = 2;
    ReaderPool pool(FileUrl(NOOKWISE_FAKE_WORKER), {}, limits);
    const CallStop never({}, {});
    const auto borrow = [&] { return pool.borrow(ReaderRole::text, never); };
    std::atomic<int> waiting = 0;
    std::barrier everybody(3);
    const auto borrowEveryRound = [&] {
        for (int round = 0; round < rounds; ++round) {
            everybody.arrive_and_wait();
            ++waiting;
            auto loan = borrow();
            ASSERT_TRUE(loan);
            // Nobody gives back before both have theirs.
            everybody.arrive_and_wait();
            loan.value().giveBack();
            everybody.arrive_and_wait();
        }
    };
    const std::jthread one(borrowEveryRound);
    const std::jthread other(borrowEveryRound);
    for (int round = 0; round < rounds; ++round) {
        auto first = borrow();
        auto second = borrow();
        ASSERT_TRUE(first && second);
        everybody.arrive_and_wait();
        while (waiting < 2 * (round + 1)) std::this_thread::yield();
        // A chance to get as far as waiting, which is the case that matters.
        for (int turn = 0; turn < round; ++turn) std::this_thread::yield();
        first.value().giveBack();
        second.value().giveBack();
        everybody.arrive_and_wait();
        everybody.arrive_and_wait();
    }
}

using ReaderPoolLoansOfFiles = ReaderPoolFixture;

TEST_F(ReaderPoolLoansOfFiles, ATextNoLongerGivesWayToAPictureThatNobodyWantsAnyMore) {
    makeReader(oneProcess());
    const auto [hanging, pipe] = hangingFileAndPipe();
    std::stop_source first;
    std::jthread working(
        [&, hanging = hanging] { (void)reader().pdf(hanging, first.get_token()); });
    idOfHanging(pipe);
    std::stop_source unwanted;
    const auto picture = file("say-bytes 1 1 0 0");
    std::jthread scrolling([&] { (void)reader().pixelSize(picture, unwanted.get_token()); });
    waitUntilOpen(picture);
    const auto hello = file("say hello");
    std::string answer;
    std::jthread waiting([&] { answer = textOf(reader().pdf(hello, {})); });
    waitUntilOpen(hello);
    unwanted.request_stop();
    scrolling.join();
    first.request_stop();
    waiting.join();
    EXPECT_EQ(answer, "hello");
}

}  // namespace
}  // namespace nookwise
