#include "platform/linux/QtTasks.h"
#include "platform/linux/SystemClock.h"
#include "tests/platform_linux/Events.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <atomic>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <linux/ioprio.h>
#include <pthread.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

void runPendingEvents() {
    QCoreApplication::processEvents();
}

TEST(QtTasksPost, runsOnTheUiThreadInOrderAndNotAtOnce) {
    QtTasks tasks;
    std::vector<int> order;
    std::thread::id thread;
    for (int i = 0; i < 100; ++i) tasks.post([&order, i] { order.push_back(i); });
    tasks.post([&] {
        thread = std::this_thread::get_id();
        tasks.post([&] { order.push_back(101); });
        order.push_back(100);
    });
    EXPECT_TRUE(order.empty());
    runEventsUntil([&] { return order.size() == 102; });
    for (int i = 0; i < 102; ++i) EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(QtTasksPost, takesWorkFromAnyThread) {
    QtTasks tasks;
    const auto uiThread = std::this_thread::get_id();
    int ran = 0;
    int elsewhere = 0;
    std::vector<int> next(4, 0);
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < 250; ++i) {
                tasks.post([&, thread, i] {
                    if (std::this_thread::get_id() != uiThread) ++elsewhere;
                    EXPECT_EQ(next[thread]++, i);
                    ++ran;
                });
            }
        });
    }
    runEventsUntil([&] { return ran == 1000; });
    EXPECT_EQ(elsewhere, 0);
}

TEST(QtTasksPost, neverRunsOnceTheTasksAreGone) {
    int ran = 0;
    const auto held = std::make_shared<int>(0);
    {
        QtTasks tasks;
        for (int i = 0; i < 10; ++i) tasks.post([&ran, held] { ++ran; });
    }
    runPendingEvents();
    EXPECT_EQ(ran, 0);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(QtTasksDelay, runsOnceWhenItsTimeHasPassed) {
    QtTasks tasks;
    QElapsedTimer clock;
    clock.start();
    int ran = 0;
    qint64 after = 0;
    const auto first = tasks.after(30ms, [&] {
        after = clock.elapsed();
        ++ran;
    });
    const auto second = tasks.after(90ms, [&] { ran += 10; });
    runEventsUntil([&] { return ran >= 10; });
    EXPECT_EQ(ran, 11);
    EXPECT_GE(after, 30);
}

TEST(QtTasksDelay, mayBeNothingOrLess) {
    QtTasks tasks;
    int ran = 0;
    const auto none = tasks.after(0ms, [&] { ++ran; });
    const auto negative = tasks.after(-1h, [&] { ++ran; });
    EXPECT_EQ(ran, 0);
    runEventsUntil([&] { return ran == 2; });
}

TEST(QtTasksDelay, mayBeLongerThanTheTimersRange) {
    QtTasks tasks;
    int ran = 0;
    const auto years = tasks.after(24h * 365 * 5, [&] { ran += 10; });
    const auto soon = tasks.after(1ms, [&] { ++ran; });
    runEventsUntil([&] { return ran > 0; });
    EXPECT_EQ(ran, 1);
}

TEST(QtTasksDelay, isCancelledWithItsHandle) {
    QtTasks tasks;
    const auto held = std::make_shared<int>(0);
    bool cancelledRan = false;
    bool laterRan = false;
    auto cancelled = tasks.after(1ms, [&, held] { cancelledRan = true; });
    const auto later = tasks.after(40ms, [&] { laterRan = true; });
    cancelled.reset();
    EXPECT_EQ(held.use_count(), 1);
    runEventsUntil([&] { return laterRan; });
    EXPECT_FALSE(cancelledRan);
}

TEST(QtTasksDelay, mayDestroyItsOwnHandleAndStartAnother) {
    QtTasks tasks;
    std::unique_ptr<Tasks::Delay> delay;
    int ran = 0;
    std::function<void()> again = [&] {
        const std::string local = "still here after the handle has gone";
        delay = ++ran < 3 ? tasks.after(1ms, again) : nullptr;
        EXPECT_EQ(local.size(), 36U);
    };
    delay = tasks.after(1ms, again);
    runEventsUntil([&] { return ran == 3; });
    EXPECT_EQ(delay, nullptr);
}

TEST(QtTasksDelay, neverRunsOnceTheTasksAreGone) {
    std::unique_ptr<Tasks::Delay> outliving;
    bool ran = false;
    {
        QtTasks tasks;
        outliving = tasks.after(1ms, [&] { ran = true; });
    }
    QtTasks others;
    bool otherRan = false;
    const auto later = others.after(40ms, [&] { otherRan = true; });
    runEventsUntil([&] { return otherRan; });
    EXPECT_FALSE(ran);
}

struct Priority {
    int policy = -1;
    long disk = -1;
    std::string name;
};

Priority ownPriority() {
    char name[16] = {};
    ::pthread_getname_np(::pthread_self(), name, sizeof name);
    return {::sched_getscheduler(0), ::syscall(SYS_ioprio_get, IOPRIO_WHO_PROCESS, 0), name};
}

struct Priorities {
    Priority own;
    Priority inherited;
};

Priorities prioritiesOf(TaskPriority priority) {
    Priorities found;
    {
        QtTasks tasks;
        tasks.detach(priority, [&] {
            found.own = ownPriority();
            std::thread([&] { found.inherited = ownPriority(); }).join();
        });
    }
    return found;
}

TEST(QtTasksDetach, givesUtilityWorkTheIdleClassOfProcessorAndDisk) {
    const auto [own, inherited] = prioritiesOf(TaskPriority::utility);
    for (const auto& priority : {own, inherited}) {
        EXPECT_EQ(priority.policy, SCHED_IDLE);
        EXPECT_EQ(IOPRIO_PRIO_CLASS(priority.disk), IOPRIO_CLASS_IDLE);
        EXPECT_EQ(priority.name, "nookwise-idle");
    }
}

TEST(QtTasksDetach, leavesWhatTheUserWaitsForAtNormalPriority) {
    const auto before = ownPriority();
    const auto [own, inherited] = prioritiesOf(TaskPriority::userInitiated);
    for (const auto& priority : {own, inherited}) {
        EXPECT_EQ(priority.policy, before.policy);
        EXPECT_NE(priority.policy, SCHED_IDLE);
        EXPECT_EQ(priority.disk, before.disk);
        EXPECT_EQ(priority.name, "nookwise-work");
    }
}

TEST(QtTasksDetach, doesNotTouchThePriorityOfTheUiThread) {
    const auto before = ownPriority();
    prioritiesOf(TaskPriority::utility);
    const auto after = ownPriority();
    EXPECT_EQ(after.policy, before.policy);
    EXPECT_EQ(after.disk, before.disk);
    EXPECT_EQ(after.name, before.name);
}

TEST(QtTasksDetach, runsEachPieceOnAThreadOfItsOwn) {
    std::thread::id first;
    std::thread::id second;
    {
        QtTasks tasks;
        std::atomic<int> arrived{0};
        // Neither could end if they shared a thread.
        const auto meet = [&arrived](std::thread::id& own) {
            own = std::this_thread::get_id();
            ++arrived;
            arrived.notify_all();
            for (int seen = arrived; seen < 2; seen = arrived) arrived.wait(seen);
        };
        tasks.detach(TaskPriority::userInitiated, [&] { meet(first); });
        tasks.detach(TaskPriority::userInitiated, [&] { meet(second); });
        while (arrived < 2) std::this_thread::yield();
    }
    EXPECT_NE(first, second);
    EXPECT_NE(first, std::this_thread::get_id());
}

TEST(QtTasksDetach, isWaitedForAtTheEnd) {
    std::atomic<bool> ended{false};
    std::stop_source source;
    {
        QtTasks tasks;
        tasks.detach(TaskPriority::userInitiated, [&ended, stop = source.get_token()] {
            while (!stop.stop_requested()) std::this_thread::yield();
            ended = true;
        });
        EXPECT_FALSE(ended);
        source.request_stop();
    }
    EXPECT_TRUE(ended);
}

TEST(QtTasksDetach, mayPostUntilItEndsButNothingRunsAfterTheTasks) {
    std::atomic<bool> isEnding{false};
    std::atomic<int> posted{0};
    int ran = 0;
    {
        QtTasks tasks;
        tasks.detach(TaskPriority::userInitiated, [&] {
            while (!isEnding) std::this_thread::yield();
            for (int i = 0; i < 1000; ++i) {
                tasks.post([&ran] { ++ran; });
                ++posted;
            }
        });
        isEnding = true;
    }
    runPendingEvents();
    EXPECT_EQ(posted, 1000);
    EXPECT_EQ(ran, 0);
}

TEST(QtTasksDetach, endsWhatTheWorkHoldsWithTheWork) {
    QtTasks tasks;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watched = held;
    tasks.detach(TaskPriority::utility, [held = std::move(held)] {});
    while (!watched.expired()) std::this_thread::yield();
    EXPECT_EQ(tasks.threadCount(), 1U);
}

TEST(QtTasksDetach, joinsThreadsThatHaveEnded) {
    QtTasks tasks;
    constexpr int pieces = 200;
    for (int i = 0; i < pieces; ++i) {
        bool hasRun = false;
        tasks.detach(TaskPriority::userInitiated,
                     [&] { tasks.post([&hasRun] { hasRun = true; }); });
        runEventsUntil([&] { return hasRun; });
    }
    EXPECT_LT(tasks.threadCount(), std::size_t{pieces / 2});
}

TEST(SystemClock, tellsTheTimeOfDay) {
    const SystemClock clock;
    const Date before = std::chrono::system_clock::now();
    const Date now = clock.now();
    const Date after = std::chrono::system_clock::now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}

}  // namespace
}  // namespace nookwise
