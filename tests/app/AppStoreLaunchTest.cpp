#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

using namespace std::chrono_literals;

class Launch : public StoreFixture {
  protected:
    /// Counts the questions for the disk figures from now on.
    void watchDisk() {
        world.files.onOperation([this](const FakeOperation& operation) {
            if (operation.kind != FakeOperation::Kind::volumeFigures) return;
            ++diskQuestions_;
            askedVolume_ = operation.url;
        });
    }

    int diskQuestions_ = 0;
    FileUrl askedVolume_;
};

TEST_F(Launch, beginsWithEmptyFields) {
    const auto store = AppStore::create(world.platform());
    EXPECT_EQ(store->section.get(), AppSection::home);
    EXPECT_TRUE(store->files.get().empty());
    EXPECT_TRUE(store->shelves.get().empty());
    EXPECT_TRUE(store->apps.get().empty());
    EXPECT_EQ(store->phase.get(), Phase::idle);
    EXPECT_EQ(store->progress.get(), ScanProgress{});
    EXPECT_TRUE(store->piles.get().empty());
    EXPECT_TRUE(store->duplicates.get().empty());
    EXPECT_EQ(store->selectedPile.get(), PileKind::installers);
    EXPECT_TRUE(store->checked.get().empty());
    EXPECT_TRUE(store->texts.get().empty());
    EXPECT_TRUE(store->lowerTexts.get().empty());
    EXPECT_TRUE(store->sources.get().empty());
    EXPECT_TRUE(store->activity.get().empty()) << "there is no log yet, and no message about it";
    EXPECT_FALSE(store->toast.get().has_value());
    EXPECT_FALSE(store->pendingTrash.get().has_value());
    EXPECT_FALSE(store->busy.get().has_value());
    EXPECT_EQ(store->fileOpsVersion.get(), 0);
    EXPECT_FALSE(store->transferring.get());
    EXPECT_FALSE(store->justCleared.get().has_value());
    EXPECT_TRUE(store->recent.get().empty());
    EXPECT_TRUE(store->justLanded.get().empty());
    EXPECT_TRUE(store->screenshots.get().empty());
}

TEST_F(Launch, readsTheActivityLogAtOnce) {
    world.files.addFile(
        "/home/user/.local/share/Nookwise/activity.json",
        {.contents = R"([{"id":"5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60",)"
                     R"("date":"2023-11-01T09:30:00Z","title":"Swept 1 downloads",)"
                     R"("source":"Forgotten downloads","moves":[],"restored":false}])"});
    const auto store = AppStore::create(world.platform());
    ASSERT_EQ(store->activity.get().size(), 1u);
    EXPECT_EQ(store->activity.get().front().title, "Swept 1 downloads");
}

TEST_F(Launch, keepsABrokenActivityLogAsItIsUntilTheNextSave) {
    constexpr auto log = "/home/user/.local/share/Nookwise/activity.json";
    world.files.addFile(log, {.contents = "[{"});
    const auto store = launch();
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_EQ(world.files.contents(log), "[{");
}

TEST_F(Launch, clearsUpAfterEarlierRunsInTheBackground) {
    int cleanings = 0;
    world.files.onOperation([&](const FakeOperation& operation) {
        cleanings += operation.kind == FakeOperation::Kind::removeLeftovers ? 1 : 0;
    });
    const auto store = AppStore::create(world.platform());
    EXPECT_EQ(cleanings, 0);
    world.tasks.runEverything();
    EXPECT_EQ(cleanings, 1);
}

TEST_F(Launch, readsTheDiskFiguresOfTheStartUpVolumeAtOnce) {
    watchDisk();
    const auto store = AppStore::create(world.platform());
    EXPECT_EQ(diskQuestions_, 1);
    EXPECT_EQ(askedVolume_, FileUrl("/"));
    EXPECT_EQ(store->freeBytes.get(), 100);
    EXPECT_EQ(store->totalBytes.get(), 1'000);
}

TEST_F(Launch, loadsTheApplicationsInTheBackground) {
    world.files.addPackage("/Applications/Blue Kite.app");
    world.files.addPackage("/home/user/Applications/Own.app");
    world.files.addFile("/Applications/readme.txt");
    world.metadata.setLastUsed("/Applications/Blue Kite.app", ago(day));
    const auto store = AppStore::create(world.platform());
    EXPECT_EQ(world.tasks.detachedPriorities().front(), TaskPriority::utility);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    EXPECT_TRUE(store->apps.get().empty()) << "written before the UI thread's turn";
    world.tasks.runUiTasks();
    EXPECT_EQ(store->apps.get(),
              (std::vector{AppInfo{FileUrl("/Applications/Blue Kite.app"), ago(day)},
                           AppInfo{FileUrl("/home/user/Applications/Own.app"), std::nullopt}}));
}

TEST_F(Launch, dropsAListOfApplicationsThatIsDoneAfterANewerOne) {
    world.files.addPackage("/Applications/Old.app");
    const auto store = AppStore::create(world.platform());
    const auto older = world.tasks.takeBackgroundTask();
    scan(*store);
    world.files.addPackage("/Applications/Late.app");
    older();
    world.tasks.runUiTasks();
    EXPECT_EQ(store->apps.get(),
              (std::vector{AppInfo{FileUrl("/Applications/Old.app"), std::nullopt}}));
}

TEST_F(Launch, theStoresEndStopsTheLoadingOfTheApplications) {
    world.files.addPackage("/Applications/Blue Kite.app");
    auto store = AppStore::create(world.platform());
    const auto loading = world.tasks.takeBackgroundTask();
    store.reset();
    loading();
    EXPECT_TRUE(world.metadata.asked().empty()) << "nothing was listed any more";
    world.tasks.runUiTasks();
}

TEST_F(Launch, doesNotTakeTheReadingOfADesktopEntryForUseOfItsApplication) {
    const FileUrl entry("/usr/share/applications/kite.desktop");
    world.workspace.installed = {{"Kite", entry}};
    world.metadata.setLastUsed(entry.path(), ago(day));
    const auto store = launch();
    EXPECT_EQ(store->apps.get(), (std::vector{AppInfo{entry, std::nullopt}}));
}

TEST_F(Launch, doesNotScan) {
    addForgotten();
    int enumerations = 0;
    world.files.onOperation([&](const FakeOperation& operation) {
        enumerations += operation.kind == FakeOperation::Kind::enumerate;
    });
    const auto store = launch();
    EXPECT_EQ(enumerations, 0);
    EXPECT_EQ(store->phase.get(), Phase::idle);
    EXPECT_TRUE(store->files.get().empty());
}

TEST_F(Launch, refreshesTheDiskFiguresEvery120Seconds) {
    const auto store = launch();
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 50, .totalBytes = 1'000});
    watchDisk();
    world.tasks.advance(119'999ms);
    EXPECT_EQ(diskQuestions_, 0);
    world.tasks.advance(1ms);
    world.tasks.runUiTasks();
    EXPECT_EQ(diskQuestions_, 1);
    EXPECT_EQ(store->freeBytes.get(), 50);
    world.tasks.advance(119'999ms);
    EXPECT_EQ(diskQuestions_, 1);
    world.tasks.advance(1ms);
    EXPECT_EQ(diskQuestions_, 2);
    world.tasks.advance(1h);
    EXPECT_EQ(diskQuestions_, 32);
}

TEST_F(Launch, refreshesOnThoughARefreshFails) {
    const auto store = launch();
    watchDisk();
    world.files.setVolumeFigures(std::nullopt);
    world.tasks.advance(120s);
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 7, .totalBytes = 8});
    world.tasks.advance(120s);
    EXPECT_EQ(diskQuestions_, 2);
    EXPECT_EQ(store->freeBytes.get(), 7);
}

TEST_F(Launch, keepsNoHoldOnTheStore) {
    auto store = AppStore::create(world.platform());
    const std::weak_ptr<AppStore> weak = store;
    EXPECT_EQ(store.use_count(), 1);
    store.reset();
    EXPECT_TRUE(weak.expired());
    watchDisk();
    world.tasks.runEverything();
    world.tasks.advance(1h);
    world.tasks.runEverything();
    EXPECT_EQ(diskQuestions_, 0);
    EXPECT_EQ(world.tasks.pendingDelays(), 0u);
}

class DiskFigures : public Launch {};

TEST_F(DiskFigures, areLeftAsTheyWereWhenTheyCannotBeRead) {
    const auto store = launch();
    world.files.setVolumeFigures(std::nullopt);
    store->refreshDisk();
    EXPECT_EQ(store->freeBytes.get(), 100);
    EXPECT_EQ(store->totalBytes.get(), 1'000);
}

TEST_F(DiskFigures, thatAreMissingReadAsZero) {
    const auto store = launch();
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = std::nullopt, .totalBytes = 9});
    store->refreshDisk();
    EXPECT_EQ(store->freeBytes.get(), 0);
    EXPECT_EQ(store->totalBytes.get(), 9);
    world.files.setVolumeFigures(VolumeFigures{});
    store->refreshDisk();
    EXPECT_EQ(store->totalBytes.get(), 0);
}

TEST_F(DiskFigures, thatAreTheSameTellNobody) {
    const auto store = launch();
    int told = 0;
    const auto freeSubscription = store->freeBytes.observe([&] { ++told; });
    const auto totalSubscription = store->totalBytes.observe([&] { ++told; });
    store->refreshDisk();
    EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace nookwise
