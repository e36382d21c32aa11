#include "app/LongCall.h"
#include "tests/support/ManualClock.h"

#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class LongCallTest : public testing::Test {
  protected:
    LongCallTest() {
        watch_ = busy.observe([this] { shown.push_back(busy.get()); });
    }
    void wait(double seconds) { clock.set(clock.now() + Seconds{seconds}); }

    ManualClock clock{Date{Seconds{1'000}}};
    Observable<std::optional<Busy>> busy;
    std::vector<std::optional<Busy>> shown;

  private:
    Subscription watch_;
};

TEST_F(LongCallTest, showsNothingWhenItIsSoonDone) {
    {
        LongCall call(busy, clock, 10);
        call.report(0);
        wait(0.09);
        call.report(9);
    }
    EXPECT_TRUE(shown.empty());
}

TEST_F(LongCallTest, showsHowFarItIsFromTimeToTimeAndEndsWithNothing) {
    {
        LongCall call(busy, clock, 100);
        wait(0.11);
        call.report(10);
        wait(0.04);
        call.report(20);
        wait(0.02);
        call.report(30);
    }
    EXPECT_EQ(shown,
              (std::vector<std::optional<Busy>>{Busy{10, 100}, Busy{30, 100}, std::nullopt}));
}

TEST_F(LongCallTest, goesOnShowingWhenTheClockIsSetBack) {
    LongCall call(busy, clock, 100);
    wait(-3'600);
    call.report(1);
    call.report(2);
    wait(0.06);
    call.report(3);
    EXPECT_EQ(shown, (std::vector<std::optional<Busy>>{Busy{1, 100}, Busy{3, 100}}));
}

TEST_F(LongCallTest, leavesTimeForTheWorkWhereShowingTakesLong) {
    LongCall call(busy, clock, 100);
    const auto slow = busy.observe([this] { wait(1.0); });
    wait(0.2);
    call.report(1);
    call.report(2);
    EXPECT_EQ(shown.size(), 1u);
}

}  // namespace
}  // namespace nookwise
