#include "app/Pane.h"
#include "tests/support/FakePlatform.h"

#include <latch>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class PaneOfAHome : public testing::Test {
  protected:
    PaneOfAHome() {
        world.files.addFile("/home/user/Downloads/a");
        world.files.addFile("/home/user/Downloads/b");
        world.files.addFile("/home/user/Downloads/folder/inside");
        world.files.addFile("/home/user/Documents/d");
        pane.emplace(world.platform(), downloads);
    }

    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& item : pane->items.get())
            result.emplace_back(item.url.lastPathComponent());
        return result;
    }
    void reload() {
        pane->reload();
        world.tasks.runEverything();
    }
    void open(const FileUrl& url) {
        pane->open(url);
        world.tasks.runEverything();
    }
    void follow(std::optional<FileUrl> newPlace = std::nullopt) {
        pane->follow(std::move(newPlace));
        world.tasks.runEverything();
    }

    FakePlatform world;
    const FileUrl home{"/home/user"};
    const FileUrl downloads{"/home/user/Downloads"};
    const FileUrl documents{"/home/user/Documents"};
    const FileUrl folder{"/home/user/Downloads/folder"};
    std::optional<Pane> pane;
};

TEST_F(PaneOfAHome, listsNothingBeforeItIsAskedTo) {
    world.tasks.runEverything();
    EXPECT_THAT(pane->items.get(), IsEmpty());
    EXPECT_TRUE(world.tasks.detachedPriorities().empty());
}

TEST_F(PaneOfAHome, isLoadingUntilItsListingHasLanded) {
    pane->reload();
    EXPECT_TRUE(pane->loading.get());
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    EXPECT_TRUE(pane->loading.get());
    EXPECT_THAT(names(), IsEmpty());
    world.tasks.runUiTasks();
    EXPECT_FALSE(pane->loading.get());
    EXPECT_THAT(names(), ElementsAre("folder", "a", "b"));
    EXPECT_THAT(world.tasks.detachedPriorities(), ElementsAre(TaskPriority::userInitiated));
}

TEST_F(PaneOfAHome, keepsItsItemsInSightWhileItListsAnew) {
    reload();
    pane->reload();
    EXPECT_THAT(names(), ElementsAre("folder", "a", "b"));
}

TEST_F(PaneOfAHome, tellsNobodyOfAListingThatIsTheSame) {
    reload();
    int told = 0;
    const auto observed = pane->items.observe([&] { ++told; });
    reload();
    EXPECT_EQ(told, 0);
}

TEST_F(PaneOfAHome, dropsAListingThatANewerOneReplaced) {
    pane->reload();
    const auto first = world.tasks.takeBackgroundTask();
    pane->reload();
    world.files.addFile("/home/user/Downloads/c");
    first();
    world.tasks.runUiTasks();
    EXPECT_TRUE(pane->loading.get()) << "the newer one is on its way";
    EXPECT_THAT(names(), IsEmpty());
    world.tasks.runEverything();
    EXPECT_FALSE(pane->loading.get());
    EXPECT_THAT(names(), ElementsAre("folder", "a", "b", "c"));
}

TEST_F(PaneOfAHome, dropsAListingThatWasReplacedOnItsWay) {
    pane->reload();
    world.tasks.runBackgroundTask();
    pane->reload();
    world.tasks.runUiTasks();
    EXPECT_TRUE(pane->loading.get());
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PaneOfAHome, showsOnlyTheLastOfSeveralFoldersOpenedQuickly) {
    std::vector<std::vector<std::string>> seen;
    const auto observed = pane->items.observe([&] { seen.push_back(names()); });
    pane->open(documents);
    pane->open(folder);
    pane->open(downloads);
    pane->open(documents);
    // The listings end in the opposite order.
    std::vector<std::function<void()>> listings;
    while (auto listing = world.tasks.takeBackgroundTask()) listings.push_back(listing);
    while (!listings.empty()) {
        listings.back()();
        listings.pop_back();
        world.tasks.runUiTasks();
    }
    EXPECT_THAT(seen, ElementsAre(ElementsAre("d")));
    EXPECT_FALSE(pane->loading.get());
}

TEST_F(PaneOfAHome, dropsAListingOfAFolderThatItNoLongerShows) {
    pane->reload();
    pane->folder.set(documents);
    world.tasks.runEverything();
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PaneOfAHome, opensAFolderWithNothingSelected) {
    reload();
    pane->selection.set({downloads.append("a")});
    open(folder);
    EXPECT_EQ(pane->folder.get(), folder);
    EXPECT_TRUE(pane->selection.get().empty());
    EXPECT_THAT(names(), ElementsAre("inside"));
}

TEST_F(PaneOfAHome, keepsSelectedWhatIsStillListed) {
    reload();
    pane->selection.set({downloads.append("a"), downloads.append("b"), folder});
    world.files.remove("/home/user/Downloads/b");
    reload();
    EXPECT_THAT(pane->selection.get(), UnorderedElementsAre(downloads.append("a"), folder));
    int told = 0;
    const auto observed = pane->selection.observe([&] { ++told; });
    reload();
    EXPECT_EQ(told, 0) << "nothing more is gone";
}

TEST_F(PaneOfAHome, keepsTheSelectionMadeWhileItWasListing) {
    reload();
    pane->reload();
    pane->selection.set({downloads.append("b")});
    world.tasks.runEverything();
    EXPECT_THAT(pane->selection.get(), UnorderedElementsAre(downloads.append("b")));
}

TEST_F(PaneOfAHome, keepsASelectionOfAHundredThousand) {
    constexpr int count = 100'000;
    for (int i = 0; i < count; ++i) world.files.addFile("/many/" + std::to_string(i));
    open(FileUrl("/many"));
    std::unordered_set<FileUrl> all;
    for (const auto& item : pane->items.get()) all.insert(item.url);
    pane->selection.set(all);
    reload();
    EXPECT_EQ(pane->selection.get(), all);
    world.files.remove("/many/77777");
    reload();
    EXPECT_EQ(pane->selection.get().size(), all.size() - 1);
    EXPECT_FALSE(pane->selection.get().contains(FileUrl("/many/77777")));
}

TEST_F(PaneOfAHome, givesTheSelectionInTheOrderOfTheList) {
    reload();
    pane->selection.set({downloads.append("b"), folder, downloads.append("a")});
    EXPECT_THAT(pane->selectedInOrder(),
                ElementsAre(folder, downloads.append("a"), downloads.append("b")));
}

TEST_F(PaneOfAHome, goesUpToTheHomeFolderAndNoFurther) {
    open(folder);
    EXPECT_TRUE(pane->canGoUp());
    pane->goUp();
    EXPECT_EQ(pane->folder.get(), downloads);
    pane->goUp();
    EXPECT_EQ(pane->folder.get(), home);
    EXPECT_FALSE(pane->canGoUp());
    world.tasks.runEverything();
    const auto listings = world.tasks.detachedPriorities().size();
    pane->goUp();
    EXPECT_EQ(pane->folder.get(), home);
    EXPECT_EQ(world.tasks.detachedPriorities().size(), listings);
}

TEST_F(PaneOfAHome, knowsItsHomeFolderUnderEveryWayToWriteIt) {
    pane->open(FileUrl("/home//user/./Downloads/.."));
    EXPECT_FALSE(pane->canGoUp());
    world.folders.homeFolder = FileUrl("/home/./user//");
    pane->open(home);
    EXPECT_FALSE(pane->canGoUp());
    pane->open(FileUrl("/home/user/Downloads/folder/."));
    pane->goUp();
    EXPECT_EQ(pane->folder.get(), downloads);
}

TEST_F(PaneOfAHome, findsItsWayHomeFromOutside) {
    pane->open(FileUrl("/disk/folder"));
    EXPECT_TRUE(pane->canGoUp());
    pane->goUp();
    EXPECT_EQ(pane->folder.get(), FileUrl("/disk"));
    pane->goUp();
    EXPECT_EQ(pane->folder.get(), home) << "what lies above the home folder is not shown";
    for (const auto* above : {"/", "/home", "/home/other"}) {
        pane->open(FileUrl(above));
        pane->goUp();
        EXPECT_EQ(pane->folder.get(), home) << above;
    }
}

TEST_F(PaneOfAHome, listsAFolderThatIsGoneOrClosedAsEmptyAndGoesUpFromThere) {
    open(folder);
    world.files.remove(folder.path());
    reload();
    EXPECT_EQ(pane->folder.get(), folder);
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_FALSE(pane->loading.get());
    pane->goUp();
    world.tasks.runEverything();
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    world.files.makeUnreadable(downloads.path());
    reload();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_TRUE(pane->canGoUp());
}

TEST_F(PaneOfAHome, survivesItsFolderVanishingDuringTheListing) {
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::list) world.files.remove(downloads.path());
    });
    reload();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_FALSE(pane->loading.get());
}

TEST_F(PaneOfAHome, followsAFolderToItsNewPlace) {
    open(folder);
    pane->selection.set({folder.append("inside")});
    const auto moved = documents.append("folder");
    ASSERT_TRUE(world.files.move(folder, moved));
    follow(moved);
    EXPECT_EQ(pane->folder.get(), moved);
    EXPECT_THAT(names(), ElementsAre("inside"));
    EXPECT_TRUE(pane->selection.get().empty());
    EXPECT_FALSE(pane->loading.get());
}

TEST_F(PaneOfAHome, staysInAFolderThatIsStillThere) {
    open(folder);
    world.files.addFolder("/home/user/Documents/folder");
    follow(documents.append("folder"));
    EXPECT_EQ(pane->folder.get(), folder);
}

TEST_F(PaneOfAHome, givesWayToTheNearestFolderAboveThatIsThere) {
    open(folder.append("deeper").append("still"));
    follow(FileUrl("/nowhere"));
    EXPECT_EQ(pane->folder.get(), folder);
    EXPECT_THAT(names(), ElementsAre("inside"));
    world.files.remove(downloads.path());
    follow();
    EXPECT_EQ(pane->folder.get(), home);
    open(FileUrl("/disk/gone"));
    follow();
    EXPECT_EQ(pane->folder.get(), home) << "not to what lies above it";
}

TEST_F(PaneOfAHome, staysAtAHomeFolderThatIsGone) {
    world.files.remove(home.path());
    open(home);
    follow();
    EXPECT_EQ(pane->folder.get(), home);
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PaneOfAHome, isUnharmedByAnObserverThatOpensAnotherFolder) {
    const auto observed = pane->items.observe([&] {
        if (pane->folder.get() == downloads) pane->open(documents);
    });
    pane->reload();
    world.tasks.runBackgroundTask();
    world.tasks.runUiTasks();
    EXPECT_TRUE(pane->loading.get()) << "the other folder's listing is on its way";
    world.tasks.runEverything();
    EXPECT_THAT(names(), ElementsAre("d"));
    EXPECT_FALSE(pane->loading.get());
}

TEST_F(PaneOfAHome, showsNoItemsInAFolderThatAnObserverOpensInsteadOfANewPlace) {
    open(folder);
    const auto moved = documents.append("folder");
    ASSERT_TRUE(world.files.move(folder, moved));
    const auto observed = pane->folder.observe([&] {
        if (pane->folder.get() == moved) pane->open(documents);
    });
    std::vector<std::vector<std::string>> seen;
    const auto watched = pane->items.observe([&] { seen.push_back(names()); });
    follow(moved);
    EXPECT_EQ(pane->folder.get(), documents);
    EXPECT_THAT(seen, ElementsAre(ElementsAre("folder", "d")));
}

TEST_F(PaneOfAHome, keepsTheSelectionThatAnObserverMakesInAnotherFolder) {
    const auto observed = pane->items.observe([&] {
        if (pane->folder.get() != downloads) return;
        pane->open(documents);
        pane->selection.set({documents.append("d")});
    });
    reload();
    EXPECT_THAT(pane->selection.get(), UnorderedElementsAre(documents.append("d")));
}

TEST_F(PaneOfAHome, mayBeEndedByAnObserver) {
    const auto observed = pane->items.observe([&] { pane.reset(); });
    reload();
    EXPECT_FALSE(pane);
}

TEST_F(PaneOfAHome, mayEndWhileItsListingWaitsRunsOrLands) {
    pane->reload();
    pane.reset();
    world.tasks.runEverything();

    pane.emplace(world.platform(), downloads);
    pane->reload();
    world.files.onOperation([&](const FakeOperation&) { pane.reset(); });
    world.tasks.runEverything();
    world.files.onOperation({});

    pane.emplace(world.platform(), downloads);
    pane->reload();
    world.tasks.runBackgroundTask();
    pane.reset();
    world.tasks.runUiTasks();
}

TEST_F(PaneOfAHome, asksNothingFurtherOnceItsListingIsCancelled) {
    world.files.addPackage("/home/user/Downloads/One.app");
    world.files.addPackage("/home/user/Downloads/Two.app");
    std::vector<FakeOperation::Kind> asked;
    world.files.onOperation([&](const FakeOperation& operation) {
        asked.push_back(operation.kind);
        if (operation.kind == FakeOperation::Kind::attributes) pane.reset();
    });
    pane->reload();
    world.tasks.runEverything();
    EXPECT_THAT(asked, ElementsAre(FakeOperation::Kind::list, FakeOperation::Kind::attributes));
}

TEST_F(PaneOfAHome, listsOnAThreadWhileItIsUsedAndEnded) {
    for (int i = 0; i < 500; ++i) world.files.addFile("/home/user/Documents/" + std::to_string(i));
    std::latch underWay(1);
    std::latch goOn(1);
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.url != downloads) return;
        underWay.count_down();
        goOn.wait();
    });
    {
        pane->reload();
        const std::jthread first(world.tasks.takeBackgroundTask());
        underWay.wait();
        pane->open(documents);
        const std::jthread second(world.tasks.takeBackgroundTask());
        goOn.count_down();
        for (int i = 0; i < 100; ++i) world.tasks.runUiTasks();
    }
    world.tasks.runEverything();
    EXPECT_EQ(pane->items.get().size(), 501u);
    pane->reload();
    const std::jthread last(world.tasks.takeBackgroundTask());
    pane.reset();
}

}  // namespace
}  // namespace nookwise
