#include "tests/app/StoreFixture.h"

#include <latch>
#include <thread>

namespace nookwise {
namespace {

/// Background work on threads of its own, with the test's thread as the UI thread.
class ScanOnAThread : public StoreFixture {
  protected:
    ScanOnAThread() {
        for (int i = 0; i < 500; ++i) {
            world.files.addFile("/home/user/Downloads/" + std::to_string(i) + ".pdf",
                                {.contents = std::string(70'000, 'x'), .added = ago(100 * day)});
        }
    }

    std::jthread start() { return std::jthread(world.tasks.takeBackgroundTask()); }
};

TEST_F(ScanOnAThread, landsItsResultOnTheUiThread) {
    const auto store = launch();
    store->scan(ScanKind::visible);
    {
        const auto thread = start();
        // What the screens do meanwhile.
        for (int i = 0; i < 100; ++i) {
            world.tasks.runUiTasks();
            store->refreshDisk();
        }
    }
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
    EXPECT_EQ(store->files.get().size(), 500u);
}

TEST_F(ScanOnAThread, isCancelledByTheNextOneInTheMiddleOfTheWalk) {
    const auto store = launch();
    std::latch underWay(1);
    std::latch replaced(1);
    std::atomic<int> entries{0};
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::entry) return;
        if (++entries == 100) {
            underWay.count_down();
            replaced.wait();
        }
    });
    store->scan(ScanKind::visible);
    {
        const auto first = start();
        underWay.wait();
        store->scan(ScanKind::visible);
        replaced.count_down();
    }
    EXPECT_EQ(entries, 100);
    world.tasks.runUiTasks();
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    EXPECT_TRUE(store->files.get().empty());
    world.tasks.runEverything();
    EXPECT_EQ(store->files.get().size(), 500u);
}

TEST_F(ScanOnAThread, outlivesTheStoreWithoutHarm) {
    auto store = launch();
    std::latch underWay(1);
    std::latch gone(1);
    std::atomic<int> entries{0};
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::entry) return;
        if (++entries == 100) {
            underWay.count_down();
            gone.wait();
        }
    });
    store->scan(ScanKind::visible);
    {
        const auto thread = start();
        underWay.wait();
        store.reset();
        gone.count_down();
    }
    world.tasks.runEverything();
    EXPECT_EQ(entries, 100);
}

TEST_F(ScanOnAThread, runsBesideOthersThatItReplacedWithoutHarm) {
    const auto store = launch();
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 6; ++i) {
            store->scan(i % 2 == 0 ? ScanKind::visible : ScanKind::quiet);
            threads.push_back(start());
            world.tasks.runUiTasks();
        }
    }
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
    EXPECT_EQ(store->files.get().size(), 500u);
}

}  // namespace
}  // namespace nookwise
