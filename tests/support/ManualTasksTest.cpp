#include "tests/support/ManualTasks.h"

#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

class ManualTasksTest : public testing::Test {
  protected:
    std::function<void()> note(std::string text) {
        return [this, text = std::move(text)] { order += text; };
    }

    std::string order;
    ManualTasks tasks;
};

TEST_F(ManualTasksTest, runPostedWorkInOrderAndWhatItPosts) {
    tasks.post([this] {
        order += "1";
        tasks.post(note("3"));
    });
    tasks.post(note("2"));
    EXPECT_EQ(order, "");
    EXPECT_EQ(tasks.postedTasks(), 2u);
    tasks.runUiTasks();
    EXPECT_EQ(order, "123");
    EXPECT_EQ(tasks.postedTasks(), 0u);
}

TEST_F(ManualTasksTest, takePostsFromAnyThread) {
    {
        const std::jthread first([this] { tasks.post(note("x")); });
        const std::jthread second([this] { tasks.post(note("x")); });
    }
    tasks.runUiTasks();
    EXPECT_EQ(order, "xx");
}

TEST_F(ManualTasksTest, fireDelaysWhenTheyAreDueTheEarliestFirst) {
    const auto late = tasks.after(20ms, note("c"));
    const auto early = tasks.after(10ms, note("a"));
    const auto sameTime = tasks.after(10ms, note("b"));
    tasks.advance(9ms);
    EXPECT_EQ(order, "");
    tasks.advance(1ms);
    EXPECT_EQ(order, "ab");
    tasks.advance(1s);
    EXPECT_EQ(order, "abc");
}

TEST_F(ManualTasksTest, fireDelaysThatAreBegunOnTheWay) {
    std::unique_ptr<Tasks::Delay> next;
    const auto first = tasks.after(10ms, [&] {
        order += "a";
        next = tasks.after(10ms, note("b"));
    });
    tasks.advance(25ms);
    EXPECT_EQ(order, "ab");
    EXPECT_EQ(tasks.pendingDelays(), 0u);
}

TEST_F(ManualTasksTest, dropADelayWithItsHandle) {
    auto delay = tasks.after(10ms, note("a"));
    delay.reset();
    EXPECT_EQ(tasks.pendingDelays(), 0u);
    tasks.advance(1s);
    EXPECT_EQ(order, "");
}

TEST_F(ManualTasksTest, letWorkReplaceItsOwnHandle) {
    std::unique_ptr<Tasks::Delay> delay;
    std::function<void()> again = [&] {
        order += "a";
        delay = tasks.after(10ms, again);
    };
    delay = tasks.after(10ms, again);
    tasks.advance(35ms);
    EXPECT_EQ(order, "aaa");
}

TEST_F(ManualTasksTest, letAHandleOutliveThem) {
    std::unique_ptr<Tasks::Delay> delay;
    {
        ManualTasks shortLived;
        delay = shortLived.after(10ms, note("a"));
    }
    delay.reset();
    EXPECT_EQ(order, "");
}

TEST_F(ManualTasksTest, runDetachedWorkOldestFirstAndNoteItsPriority) {
    tasks.detach(TaskPriority::utility, note("1"));
    tasks.detach(TaskPriority::userInitiated, note("2"));
    EXPECT_EQ(tasks.detachedPriorities(),
              (std::vector{TaskPriority::utility, TaskPriority::userInitiated}));
    EXPECT_EQ(tasks.waitingBackgroundTasks(), 2u);
    EXPECT_TRUE(tasks.runBackgroundTask());
    EXPECT_EQ(order, "1");
    tasks.takeBackgroundTask()();
    EXPECT_EQ(order, "12");
    EXPECT_FALSE(tasks.runBackgroundTask());
    EXPECT_FALSE(tasks.takeBackgroundTask());
}

TEST_F(ManualTasksTest, runEverythingUntilThereIsNoMore) {
    tasks.detach(TaskPriority::utility, [this] {
        order += "1";
        tasks.post([this] {
            order += "2";
            tasks.detach(TaskPriority::utility, note("3"));
        });
    });
    tasks.runEverything();
    EXPECT_EQ(order, "123");
}

}  // namespace
}  // namespace nookwise
