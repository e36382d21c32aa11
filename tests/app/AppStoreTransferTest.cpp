#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

using namespace std::chrono_literals;
using Kind = ActivityEntry::Kind;

class Transferring : public StoreFixture {
  protected:
    Transferring() {
        world.files.addFile("/home/user/Downloads/a.txt", {.contents = "a", .added = ago(day)});
        world.files.addFile("/home/user/Downloads/b.txt", {.contents = "b", .added = ago(day)});
        world.files.addFolder("/home/user/Documents/Projects");
        store = launch();
        scan(*store);
    }

    void start(std::vector<FileUrl> urls, TransferKind kind = TransferKind::move) {
        store->transfer(std::move(urls), projects, kind);
    }
    void transfer(std::vector<FileUrl> urls, TransferKind kind = TransferKind::move) {
        start(std::move(urls), kind);
        world.tasks.runEverything();
    }
    std::string message() const { return store->toast.get()->message; }
    Paths listed() const {
        Paths result;
        for (const auto& file : store->files.get()) result.emplace_back(file.url.path());
        return result;
    }

    const FileUrl a{"/home/user/Downloads/a.txt"};
    const FileUrl b{"/home/user/Downloads/b.txt"};
    const FileUrl projects{"/home/user/Documents/Projects"};
    std::shared_ptr<AppStore> store;
};

TEST_F(Transferring, saysSoUntilItIsDone) {
    start({a, b});
    EXPECT_TRUE(store->transferring.get());
    EXPECT_EQ(message(), "Moving 2 files…");
    EXPECT_FALSE(store->toast.get()->entryID);
    EXPECT_EQ(world.tasks.detachedPriorities().back(), TaskPriority::userInitiated);
    world.tasks.advance(60s);
    EXPECT_TRUE(store->toast.get()) << "this one does not pass by itself";
    world.tasks.runEverything();
    EXPECT_FALSE(store->transferring.get());
    EXPECT_EQ(message(), "2 files moved to Projects");
}

TEST_F(Transferring, ofOneFileSaysFile) {
    start({a}, TransferKind::copy);
    EXPECT_EQ(message(), "Copying 1 file…");
    world.tasks.runEverything();
    EXPECT_EQ(message(), "1 file copied to Projects");
}

TEST_F(Transferring, keepsTheTimerOfAnEarlierToastFromHidingItsOwn) {
    store->transfer({FileUrl("/vanished")}, projects, TransferKind::move);
    world.tasks.runEverything();
    world.tasks.advance(7s);
    start({a});
    world.tasks.advance(2s);
    ASSERT_TRUE(store->toast.get());
    EXPECT_EQ(message(), "Moving 1 file…");
}

TEST_F(Transferring, isRecordedAndSaved) {
    transfer({a, b});
    const auto& entry = store->activity.get().front();
    EXPECT_EQ(entry.title, "Moved 2 files to Projects");
    EXPECT_EQ(entry.source, "Split view");
    EXPECT_EQ(entry.kind, Kind::move);
    EXPECT_EQ(entry.date, now);
    EXPECT_EQ(entry.moves.size(), 2u);
    EXPECT_EQ(store->toast.get()->entryID, entry.id);
    EXPECT_EQ(launch()->activity.get(), store->activity.get());
}

TEST_F(Transferring, takesTheResultsAlongWithoutAScan) {
    store->checked.set({a});
    store->texts.set({{a, SharedBytes("Text")}});
    store->lowerTexts.set({{a, SharedBytes("text")}});
    store->sources.set({{a, SharedBytes("Gmail")}});
    store->piles.set({{PileKind::forgotten, {{sized(a.path(), 1), "reason", true}}}});
    store->duplicates.set({{.id = "x", .files = {sized(a.path(), 1), sized("/b", 1)}, .keep = a}});
    transfer({a});
    const auto there = projects.append("a.txt");
    EXPECT_TRUE(store->lowerTexts.get().contains(there));
    EXPECT_TRUE(store->sources.get().contains(there));
    EXPECT_EQ(store->duplicates.get().front().files.front().url, there);
    EXPECT_EQ(store->duplicates.get().front().keep, there);
    EXPECT_EQ(listed(),
              (Paths{"/home/user/Documents/Projects/a.txt", "/home/user/Downloads/b.txt"}));
    EXPECT_EQ(store->checked.get(), Ticks{there});
    EXPECT_TRUE(store->texts.get().contains(there));
    EXPECT_EQ(paths(store->piles.get().at(PileKind::forgotten)), Paths{std::string(there.path())});
    ASSERT_EQ(store->justLanded.get().size(), 1u);
    EXPECT_EQ(store->justLanded.get().front().url, b);
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(Transferring, ofCopiesChangesNoResult) {
    int changes = 0;
    std::vector<Subscription> watches;
    const auto watch = [&](auto& field) { watches.push_back(field.observe([&] { ++changes; })); };
    watch(store->files);
    watch(store->piles);
    watch(store->duplicates);
    watch(store->checked);
    watch(store->texts);
    watch(store->shelves);
    watch(store->recent);
    watch(store->justLanded);
    transfer({a}, TransferKind::copy);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(listed(), (Paths{"/home/user/Downloads/a.txt", "/home/user/Downloads/b.txt"}));
    EXPECT_EQ(store->activity.get().front().title, "Copied 1 file to Projects");
    EXPECT_EQ(store->activity.get().front().kind, Kind::copy);
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(Transferring, countsWhatWentThrough) {
    transfer({FileUrl("/vanished"), a}, TransferKind::copy);
    EXPECT_EQ(message(), "1 file copied to Projects");
    EXPECT_EQ(store->activity.get().front().title, "Copied 1 file to Projects");
    EXPECT_EQ(store->activity.get().front().moves.size(), 1u);
}

TEST_F(Transferring, thatMovesNothingSaysSo) {
    store->transfer({a}, a.parent(), TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(message(), "Couldn’t move that file — a file with that name may be in use");
    EXPECT_FALSE(store->toast.get()->entryID);
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
    transfer({FileUrl("/vanished"), FileUrl("/gone")}, TransferKind::copy);
    EXPECT_EQ(message(), "Couldn’t copy those files — a file with that name may be in use");
}

TEST_F(Transferring, isNotBegunWhileAnotherRunsOrForNothing) {
    start({});
    EXPECT_FALSE(store->transferring.get());
    start({a});
    start({b});
    EXPECT_EQ(message(), "Moving 1 file…");
    world.tasks.runEverything();
    EXPECT_TRUE(world.files.exists(b));
    EXPECT_EQ(store->activity.get().size(), 1u);
}

TEST_F(Transferring, canBeUndone) {
    transfer({a});
    store->undoLast();
    EXPECT_TRUE(world.files.exists(a));
    EXPECT_EQ(listed(), (Paths{"/home/user/Downloads/a.txt", "/home/user/Downloads/b.txt"}));
}

TEST_F(Transferring, beginsNoFurtherFileOnceTheStoreIsGone) {
    start({a, b});
    auto work = world.tasks.takeBackgroundTask();
    store.reset();
    work();
    world.tasks.runUiTasks();
    EXPECT_TRUE(world.files.exists(a));
    EXPECT_TRUE(world.files.exists(b));
}

TEST_F(Transferring, isFollowedByAScanWhereOneLandedMeanwhile) {
    start({a, b});
    const auto work = world.tasks.takeBackgroundTask();
    store->scan(ScanKind::visible);
    const auto scanning = world.tasks.takeBackgroundTask();
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::move || operation.url != b) return;
        scanning();
        world.tasks.runUiTasks();
    });
    work();
    world.files.onOperation({});
    world.tasks.runEverything();
    EXPECT_EQ(listed(), (Paths{"/home/user/Documents/Projects/a.txt",
                               "/home/user/Documents/Projects/b.txt"}));
    EXPECT_EQ(store->phase.get(), Phase::ready);
}

TEST_F(Transferring, isFollowedByNoScanWhereNoneLandedMeanwhile) {
    scan(*store);
    transfer({a});
    int scans = 0;
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::enumerate) ++scans;
    });
    transfer({b});
    EXPECT_EQ(scans, 0);
}

TEST_F(Transferring, leavesNothingThatWasKnownOfAFileThatStoodAtTheNewPlace) {
    const auto there = projects.append("a.txt");
    const FileItem other = sized("/home/user/Documents/c.txt", 7);
    const FileItem gone = sized(there.path(), 7);
    store->files.set({sized(a.path(), 1), gone});
    store->piles.set({{PileKind::forgotten, {{gone, "reason", true}}}});
    store->checked.set({there});
    store->duplicates.set({{.id = "x", .files = {gone, other}, .keep = other.url}});
    for (auto* texts : {&store->texts, &store->lowerTexts, &store->sources})
        texts->set({{there, SharedBytes("of another")}});
    transfer({a});
    ASSERT_TRUE(world.files.exists(there));
    EXPECT_EQ(listed(), Paths{std::string(there.path())});
    EXPECT_EQ(store->files.get().front().size, 1);
    EXPECT_TRUE(store->piles.get().at(PileKind::forgotten).empty());
    EXPECT_TRUE(store->checked.get().empty());
    EXPECT_TRUE(store->duplicates.get().empty());
    for (auto* texts : {&store->texts, &store->lowerTexts, &store->sources})
        EXPECT_TRUE(texts->get().empty());
}

TEST_F(Transferring, makesAScanThatIsUnderWayBeginAnew) {
    store->scan(ScanKind::quiet);
    const auto reading = world.tasks.takeBackgroundTask();
    reading();
    transfer({a});
    EXPECT_EQ(listed(),
              (Paths{"/home/user/Documents/Projects/a.txt", "/home/user/Downloads/b.txt"}));
}

}  // namespace
}  // namespace nookwise
