#include "app/Observable.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

struct WithoutEquality {
    int value = 0;
};

TEST(Observable, beginsWithTheValueThatItIsGiven) {
    EXPECT_EQ(Observable<int>().get(), 0);
    EXPECT_EQ(Observable<int>(3).get(), 3);
}

TEST(Observable, tellsAfterTheValueHasChanged) {
    Observable<int> observable(1);
    int seen = 0;
    const auto subscription = observable.observe([&] { seen = observable.get(); });
    observable.set(2);
    EXPECT_EQ(seen, 2);
}

TEST(Observable, tellsNobodyOfAnEqualValue) {
    Observable<std::string> observable("same");
    int told = 0;
    const auto subscription = observable.observe([&] { ++told; });
    observable.set("same");
    EXPECT_EQ(told, 0);
    observable.set("other");
    EXPECT_EQ(told, 1);
    observable.set("other");
    EXPECT_EQ(told, 1);
}

TEST(Observable, tellsOfEveryWriteWhenTheTypeHasNoEquality) {
    Observable<WithoutEquality> observable;
    int told = 0;
    const auto subscription = observable.observe([&] { ++told; });
    observable.set({0});
    observable.set({0});
    EXPECT_EQ(told, 2);
}

TEST(Observable, tellsOfEveryWriteOfAnOptionalWithoutEquality) {
    Observable<std::optional<WithoutEquality>> observable;
    int told = 0;
    const auto subscription = observable.observe([&] { ++told; });
    observable.set(std::nullopt);
    observable.set(WithoutEquality{1});
    observable.set(WithoutEquality{1});
    EXPECT_EQ(told, 3);
}

TEST(Observable, doesNotTellWhoBeginsToObserve) {
    Observable<int> observable(1);
    int told = 0;
    const auto subscription = observable.observe([&] { ++told; });
    EXPECT_EQ(told, 0);
}

TEST(Observable, tellsInTheOrderInWhichTheyBeganToObserve) {
    Observable<int> observable;
    std::string order;
    const auto first = observable.observe([&] { order += "1"; });
    const auto second = observable.observe([&] { order += "2"; });
    const auto third = observable.observe([&] { order += "3"; });
    observable.set(1);
    EXPECT_EQ(order, "123");
}

TEST(Observable, endsWithItsSubscription) {
    Observable<int> observable;
    int told = 0;
    {
        const auto subscription = observable.observe([&] { ++told; });
        observable.set(1);
    }
    observable.set(2);
    EXPECT_EQ(told, 1);
}

TEST(Observable, endsWhenItsSubscriptionIsReplaced) {
    Observable<int> observable;
    std::string order;
    auto subscription = observable.observe([&] { order += "old"; });
    subscription = observable.observe([&] { order += "new"; });
    observable.set(1);
    EXPECT_EQ(order, "new");
    subscription = Subscription();
    observable.set(2);
    EXPECT_EQ(order, "new");
}

TEST(Observable, mayDieBeforeASubscription) {
    Subscription subscription;
    {
        Observable<int> observable;
        subscription = observable.observe([] {});
    }
    subscription = Subscription();
}

TEST(Observable, mayBeSetAgainByAnObserver) {
    Observable<int> observable;
    int told = 0;
    const auto subscription = observable.observe([&] {
        ++told;
        if (observable.get() < 5) observable.set(observable.get() + 1);
    });
    observable.set(1);
    EXPECT_EQ(observable.get(), 5);
    EXPECT_EQ(told, 5);
}

TEST(Observable, mayGainObserversWhileItTells) {
    Observable<int> observable;
    int told = 0;
    std::vector<Subscription> subscriptions;
    subscriptions.push_back(
        observable.observe([&] { subscriptions.push_back(observable.observe([&] { ++told; })); }));
    observable.set(1);
    EXPECT_EQ(told, 0);
    observable.set(2);
    EXPECT_EQ(told, 1);
}

TEST(Observable, mayLoseObserversWhileItTells) {
    Observable<int> observable;
    std::string order;
    Subscription second;
    const auto first = observable.observe([&] {
        order += "1";
        second = Subscription();
    });
    second = observable.observe([&] { order += "2"; });
    observable.set(1);
    EXPECT_EQ(order, "1");
}

TEST(Observable, letsAnObserverEndItsOwnObservation) {
    Observable<int> observable;
    int told = 0;
    Subscription subscription;
    subscription = observable.observe([&] {
        ++told;
        subscription = Subscription();
    });
    observable.set(1);
    observable.set(2);
    EXPECT_EQ(told, 1);
}

TEST(Observable, tellsOfAChangeInPlaceOnlyWhenThereWasOne) {
    Observable<std::vector<int>> observable(std::vector<int>{1});
    int told = 0;
    const auto subscription = observable.observe([&] { ++told; });
    observable.mutate([](std::vector<int>& values) {
        values.push_back(2);
        return true;
    });
    EXPECT_EQ(told, 1);
    EXPECT_EQ(observable.get(), (std::vector{1, 2}));
    observable.mutate([](std::vector<int>&) { return false; });
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace nookwise
