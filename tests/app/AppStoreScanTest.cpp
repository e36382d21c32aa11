#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

class ScanCycle : public StoreFixture {};

TEST_F(ScanCycle, ofAVisibleScanGoesThroughScanningToReady) {
    const auto store = launch();
    store->scan(ScanKind::visible);
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    EXPECT_EQ(store->progress.get(), (ScanProgress{"", 0, 0.0, "Starting"}));
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
    EXPECT_EQ(store->progress.get(), (ScanProgress{"", 0, 1.0, "Done"}));
    store->scan(ScanKind::visible);
    EXPECT_EQ(store->phase.get(), Phase::scanning);
    EXPECT_EQ(store->progress.get().step, "Starting");
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
}

TEST_F(ScanCycle, runsVisibleScansForTheUserAndQuietOnesAtUtilityPriority) {
    const auto store = launch();
    const auto before = world.tasks.detachedPriorities().size();
    store->scan(ScanKind::visible);
    store->scan(ScanKind::quiet);
    const auto& priorities = world.tasks.detachedPriorities();
    ASSERT_EQ(priorities.size(), before + 2);
    EXPECT_EQ(priorities[before], TaskPriority::userInitiated);
    EXPECT_EQ(priorities[before + 1], TaskPriority::utility);
}

TEST_F(ScanCycle, showsTheReportsOfAVisibleScanOneAfterTheOther) {
    const auto store = launch();
    std::vector<std::string> steps;
    const auto subscription =
        store->progress.observe([&] { steps.push_back(store->progress.get().step); });
    scan(*store);
    EXPECT_EQ(steps, (std::vector<std::string>{
                         "Starting", "Reading Desktop", "Reading Documents", "Reading Downloads",
                         "Checking when files were last opened", "Looking for copies", "Done"}));
}

TEST_F(ScanCycle, writesNothingBeforeTheUiThreadsTurn) {
    addForgotten();
    const auto store = launch();
    store->scan(ScanKind::visible);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    EXPECT_EQ(store->progress.get().step, "Starting");
    EXPECT_TRUE(store->files.get().empty());
    EXPECT_EQ(store->phase.get(), Phase::scanning);
}

TEST_F(ScanCycle, ofAQuietScanTouchesNeitherPhaseNorProgressUntilItsResultLands) {
    addForgotten();
    const auto store = launch();
    int phaseTold = 0;
    int progressTold = 0;
    const auto phases = store->phase.observe([&] { ++phaseTold; });
    const auto reports = store->progress.observe([&] { ++progressTold; });
    store->scan(ScanKind::quiet);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    EXPECT_EQ(store->phase.get(), Phase::idle);
    world.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), Phase::ready);
    EXPECT_EQ(phaseTold, 1);
    EXPECT_EQ(progressTold, 0);
    EXPECT_EQ(store->files.get().size(), 1u);
    scan(*store, ScanKind::quiet);
    EXPECT_EQ(phaseTold, 1) << "a quiet scan leaves it ready throughout";
}

TEST_F(ScanCycle, takesInPilesDuplicatesFilesAndLibrary) {
    addForgotten();
    addInstaller();
    addScreenshot();
    addLarge();
    addDuplicates();
    const auto store = launch();
    scan(*store);
    for (const auto kind :
         {PileKind::forgotten, PileKind::installers, PileKind::screenshots, PileKind::large}) {
        EXPECT_EQ(store->piles.get().at(kind).size(), 1u) << rawValue(kind);
    }
    EXPECT_FALSE(store->piles.get().contains(PileKind::duplicates));
    EXPECT_EQ(store->duplicates.get().size(), 1u);
    EXPECT_EQ(store->files.get().size(), 6u);
    EXPECT_EQ(store->shelf(ShelfKind::docs).size(), 2u);
    EXPECT_EQ(store->screenshots.get().size(), 1u);
    EXPECT_EQ(store->justLanded.get().size(), 3u);
    EXPECT_TRUE(store->recent.get().empty());
}

TEST_F(ScanCycle, rebuildsTheLibraryFromTheUsersOwnFolders) {
    world.folders.downloadsFolder = FileUrl("/home/user/Loads");
    world.files.addFile("/home/user/Loads/a", {.added = ago(day)});
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(store->justLanded.get().size(), 1u);
    EXPECT_EQ(store->recent.get().size(), 1u);
}

TEST_F(ScanCycle, writesTheFieldsInAFixedOrder) {
    addForgotten();
    addDuplicates();
    addScreenshot();
    world.files.addFile("/home/user/Desktop/new", {.added = now});
    const auto store = launch();
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 1, .totalBytes = 1'000});
    store->scan(ScanKind::quiet);
    std::string order;
    const auto note = [&](auto& field, const char* name) {
        return field.observe([&order, name] { order += std::string(name) + " "; });
    };
    const std::vector<Subscription> subscriptions = [&] {
        std::vector<Subscription> all;
        all.push_back(note(store->freeBytes, "freeBytes"));
        all.push_back(note(store->checked, "checked"));
        all.push_back(note(store->selectedPile, "selectedPile"));
        all.push_back(note(store->phase, "phase"));
        all.push_back(note(store->screenshots, "screenshots"));
        all.push_back(note(store->justLanded, "justLanded"));
        all.push_back(note(store->recent, "recent"));
        all.push_back(note(store->shelves, "shelves"));
        all.push_back(note(store->files, "files"));
        all.push_back(note(store->duplicates, "duplicates"));
        all.push_back(note(store->piles, "piles"));
        return all;
    }();
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    world.tasks.runUiTasks();
    EXPECT_EQ(order,
              "piles duplicates files shelves recent justLanded screenshots phase selectedPile "
              "checked freeBytes ");
}

TEST_F(ScanCycle, loadsTheApplicationsAnewAtUtilityPriority) {
    const auto store = launch();
    world.files.addPackage("/Applications/Blue Kite.app");
    store->scan(ScanKind::visible);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    world.tasks.runUiTasks();
    const auto& priorities = world.tasks.detachedPriorities();
    // The texts that are known already come after it.
    ASSERT_GE(priorities.size(), 2u);
    EXPECT_EQ(priorities[priorities.size() - 2], TaskPriority::utility);
    EXPECT_TRUE(store->apps.get().empty());
    EXPECT_TRUE(world.tasks.runBackgroundTask());
    world.tasks.runUiTasks();
    EXPECT_EQ(store->apps.get().size(), 1u);
}

TEST_F(ScanCycle, refreshesTheDiskFigures) {
    const auto store = launch();
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 42, .totalBytes = 43});
    scan(*store);
    EXPECT_EQ(store->freeBytes.get(), 42);
    EXPECT_EQ(store->totalBytes.get(), 43);
}

}  // namespace
}  // namespace nookwise
