#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

// Which scan's result was taken in shows in the file that was there while it ran.
class SeveralScans : public StoreFixture {
  protected:
    void putFile(std::string_view name) {
        world.files.remove("/home/user/Desktop");
        world.files.addFile("/home/user/Desktop/" + std::string(name));
    }

    std::string filesOf(const AppStore& store) {
        std::string names;
        for (const auto& file : store.files.get()) names += file.url.lastPathComponent();
        return names;
    }
};

TEST_F(SeveralScans, inQuickSuccessionLandOnlyTheLast) {
    const auto store = launch();
    store->scan(ScanKind::visible);
    store->scan(ScanKind::visible);
    putFile("first");
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    world.tasks.runUiTasks();
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    EXPECT_EQ(filesOf(*store), "");
    putFile("second");
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
    EXPECT_EQ(filesOf(*store), "second");
}

TEST_F(SeveralScans, dropAResultThatWasPostedBeforeTheNextScanBegan) {
    const auto store = launch();
    putFile("first");
    store->scan(ScanKind::visible);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    store->scan(ScanKind::visible);
    world.tasks.runUiTasks();
    EXPECT_EQ(filesOf(*store), "");
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    putFile("second");
    world.tasks.runEverything();
    EXPECT_EQ(filesOf(*store), "second");
}

TEST_F(SeveralScans, landOnlyTheLastWhenTheyFinishInReverse) {
    const auto store = launch();
    store->scan(ScanKind::visible);
    const auto first = world.tasks.takeBackgroundTask();
    store->scan(ScanKind::quiet);
    const auto second = world.tasks.takeBackgroundTask();
    putFile("second");
    second();
    world.tasks.runUiTasks();
    EXPECT_EQ(store->phase.get(), Phase::ready);
    putFile("first");
    first();
    world.tasks.runUiTasks();
    EXPECT_EQ(filesOf(*store), "second");
    EXPECT_EQ(store->phase.get(), Phase::ready);
}

TEST_F(SeveralScans, landExactlyTheLastOfMany) {
    const auto store = launch();
    int landed = 0;
    const auto subscription = store->files.observe([&] { ++landed; });
    std::vector<std::function<void()>> scans;
    for (int i = 0; i < 10; ++i) {
        store->scan(i % 3 == 0 ? ScanKind::quiet : ScanKind::visible);
        scans.push_back(world.tasks.takeBackgroundTask());
    }
    putFile("stale");
    for (std::size_t i = 0; i + 1 < scans.size(); ++i) scans[i]();
    world.tasks.runUiTasks();
    putFile("last");
    scans.back()();
    world.tasks.runUiTasks();
    EXPECT_EQ(landed, 1);
    EXPECT_EQ(filesOf(*store), "last");
}

TEST_F(SeveralScans, leaveAVisibleOnesPhaseToTheQuietOneThatReplacesIt) {
    const auto store = launch();
    store->scan(ScanKind::visible);
    store->scan(ScanKind::quiet);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    world.tasks.runUiTasks();
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
}

TEST_F(SeveralScans, showLateReportsOfOneThatWasReplacedUntilTheNextReport) {
    const auto store = launch();
    store->scan(ScanKind::visible);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    store->scan(ScanKind::visible);
    EXPECT_EQ(store->progress.get().step, "Starting");
    world.tasks.runUiTasks();
    EXPECT_EQ(store->progress.get().step, "Done");
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    std::vector<std::string> steps;
    const auto subscription =
        store->progress.observe([&] { steps.push_back(store->progress.get().step); });
    world.tasks.runEverything();
    ASSERT_FALSE(steps.empty());
    EXPECT_EQ(steps.front(), "Reading Desktop");
}

TEST_F(SeveralScans, cancelTheOneThatRuns) {
    for (int i = 0; i < 1'000; ++i) world.files.addFile("/home/user/Desktop/" + std::to_string(i));
    const auto store = launch();
    store->scan(ScanKind::visible);
    int entries = 0;
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::entry) return;
        if (++entries == 10) store->scan(ScanKind::visible);
    });
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    EXPECT_EQ(entries, 10);
}

TEST_F(SeveralScans, endWithTheStore) {
    for (int i = 0; i < 1'000; ++i) world.files.addFile("/home/user/Desktop/" + std::to_string(i));
    auto store = launch();
    store->scan(ScanKind::visible);
    int entries = 0;
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::entry) return;
        if (++entries == 10) store.reset();
    });
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    EXPECT_EQ(entries, 10);
    world.tasks.runEverything();
}

}  // namespace
}  // namespace nookwise
