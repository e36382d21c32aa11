#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

using Kind = ActivityEntry::Kind;
using Move = ActivityEntry::Move;

class PutBack : public StoreFixture {
  protected:
    /// An entry whose files lie where it says, each holding the path of its original place.
    ActivityEntry entryOf(std::vector<Move> moves, std::optional<Kind> kind = std::nullopt) {
        for (const auto& move : moves)
            world.files.addFile(move.inTrash.path(),
                                {.contents = std::string(move.original.path())});
        return {.id = Uuid::random(),
                .date = now,
                .title = "title",
                .source = "source",
                .moves = std::move(moves),
                .restored = false,
                .kind = kind};
    }
    Move move(std::string_view original, std::string_view inTrash) {
        return {FileUrl(original), FileUrl(inTrash), 10};
    }
    std::string message() const { return store->toast.get()->message; }
    bool exists(std::string_view path) { return world.files.exists(FileUrl(path)); }

    std::shared_ptr<AppStore> store = launch();
};

TEST_F(PutBack, bringsTrashedFilesBack) {
    const auto entry =
        entryOf({move("/home/user/Downloads/a", "/Trash/a"), move("/gone/b", "/Trash/b")});
    store->activity.set({entry});
    store->justCleared.set(AppStore::JustCleared{PileKind::large, 1});
    store->putBack(entry.id);
    EXPECT_TRUE(exists("/home/user/Downloads/a"));
    EXPECT_TRUE(exists("/gone/b")) << "its folder is made again";
    EXPECT_EQ(message(), "Put back 2 files");
    EXPECT_FALSE(store->toast.get()->entryID);
    EXPECT_FALSE(store->justCleared.get());
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
    EXPECT_TRUE(store->activity.get().front().restored);
}

TEST_F(PutBack, ofTrashedFilesIsFollowedByAQuietScan) {
    const auto entry = entryOf({move("/home/user/Downloads/a", "/Trash/a")});
    store->activity.set({entry});
    scan(*store);
    store->putBack(entry.id);
    EXPECT_EQ(store->phase.get(), Phase::ready);
    EXPECT_TRUE(store->files.get().empty());
    world.tasks.runEverything();
    ASSERT_EQ(store->files.get().size(), 1u);
    EXPECT_EQ(store->files.get().front().url, FileUrl("/home/user/Downloads/a"));
}

TEST_F(PutBack, goesStepByStepInAFixedOrder) {
    const auto entry = entryOf({move("/home/user/a", "/Trash/a")});
    store->activity.set({entry});
    store->justCleared.set(AppStore::JustCleared{PileKind::large, 1});
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 50, .totalBytes = 1'000});
    std::vector<std::string> steps;
    const std::vector<Subscription> watches = [&] {
        std::vector<Subscription> all;
        const auto watch = [&](auto& field, std::string name) {
            all.push_back(field.observe([&steps, name] { steps.push_back(name); }));
        };
        watch(store->activity, "restored");
        watch(store->justCleared, "just cleared");
        watch(store->freeBytes, "disk");
        watch(store->toast, "toast");
        watch(store->fileOpsVersion, "version");
        return all;
    }();
    store->putBack(entry.id);
    EXPECT_EQ(steps,
              (std::vector<std::string>{"restored", "just cleared", "disk", "toast", "version"}));
}

TEST_F(PutBack, isWrittenDownBeforeAFileIsTouched) {
    const auto entry = entryOf({move("/home/user/a", "/Trash/a")});
    store->activity.set({entry});
    std::vector<FakeOperation::Kind> order;
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::move ||
            operation.kind == FakeOperation::Kind::replaceContents)
            order.push_back(operation.kind);
    });
    store->putBack(entry.id);
    EXPECT_EQ(order,
              (std::vector{FakeOperation::Kind::replaceContents, FakeOperation::Kind::move}));
    EXPECT_TRUE(launch()->activity.get().front().restored) << "the next start knows it";
}

TEST_F(PutBack, doesNothingTheSecondTime) {
    const auto entry = entryOf({move("/home/user/a", "/Trash/a")});
    store->activity.set({entry});
    store->putBack(entry.id);
    store->closeToast();
    world.files.addFile("/Trash/a", {.contents = "another file of that name"});
    store->putBack(entry.id);
    EXPECT_TRUE(exists("/Trash/a"));
    EXPECT_FALSE(store->toast.get());
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(PutBack, ofAnUnknownEntryDoesNothing) {
    store->putBack(Uuid::random());
    EXPECT_FALSE(store->toast.get());
    EXPECT_EQ(store->fileOpsVersion.get(), 0);
}

TEST_F(PutBack, thatRestoresNothingStillCountsAsDone) {
    auto entry = entryOf({});
    entry.moves = {move("/home/user/a", "/Trash/emptied meanwhile")};
    store->activity.set({entry});
    store->putBack(entry.id);
    EXPECT_EQ(message(), "Put back 0 files");
    EXPECT_TRUE(store->activity.get().front().restored);
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(PutBack, countsOneFileAsOne) {
    const auto entry = entryOf({move("/home/user/a", "/Trash/a")}, Kind::trash);
    store->activity.set({entry});
    store->putBack(entry.id);
    EXPECT_EQ(message(), "Put back 1 file");
}

TEST_F(PutBack, ofCopiesSendsThemToTheTrash) {
    const auto entry = entryOf(
        {move("/a", "/folder/a"), move("/b", "/folder/b"), move("/c", "/folder/c")}, Kind::copy);
    store->activity.set({entry});
    world.files.remove("/folder/b");
    world.files.addFile("/a");
    store->putBack(entry.id);
    EXPECT_FALSE(exists("/folder/a"));
    EXPECT_TRUE(exists("/Trash/a"));
    EXPECT_TRUE(exists("/a"));
    EXPECT_EQ(message(), "Removed 3 copies") << "also when one of them was gone";
    EXPECT_EQ(store->activity.get().size(), 1u) << "and writes no entry of its own";
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(PutBack, ofCopiesTakesThemOutOfEveryList) {
    const auto entry = entryOf({move("/a", "/folder/a")}, Kind::copy);
    world.files.addFile("/a");
    store->activity.set({entry});
    store->files.set({sized("/a", 1), sized("/folder/a", 1)});
    store->duplicates.set({{.id = "x",
                            .files = {sized("/folder/a", 1), sized("/a", 1)},
                            .keep = FileUrl("/folder/a")}});
    store->putBack(entry.id);
    EXPECT_EQ(store->files.get(), std::vector{sized("/a", 1)});
    EXPECT_TRUE(store->duplicates.get().empty()) << "else the last one would be offered";
}

TEST_F(PutBack, ofCopiesThatAreGoneChangesNoList) {
    auto entry = entryOf({move("/a", "/folder/a")}, Kind::copy);
    store->activity.set({entry});
    store->files.set({sized("/folder/a", 1)});
    world.files.remove("/folder/a");
    store->putBack(entry.id);
    EXPECT_EQ(store->files.get().size(), 1u) << "the next scan knows better";
}

TEST_F(PutBack, ofOneCopySaysCopy) {
    const auto entry = entryOf({move("/a", "/folder/a")}, Kind::copy);
    store->activity.set({entry});
    store->putBack(entry.id);
    EXPECT_EQ(message(), "Removed 1 copy");
}

TEST_F(PutBack, ofMovedFilesUpdatesTheResultsWithoutAScan) {
    const auto entry =
        entryOf({move("/home/user/Downloads/a.txt", "/home/user/Documents/a.txt")}, Kind::move);
    store->activity.set({entry});
    scan(*store);
    store->putBack(entry.id);
    EXPECT_EQ(message(), "Moved 1 file back");
    EXPECT_TRUE(exists("/home/user/Downloads/a.txt"));
    ASSERT_EQ(store->files.get().size(), 1u);
    EXPECT_EQ(store->files.get().front().url, FileUrl("/home/user/Downloads/a.txt"));
    EXPECT_EQ(store->justLanded.get().size(), 1u);
    EXPECT_EQ(world.tasks.waitingBackgroundTasks(), 0u);
}

TEST_F(PutBack, ofMovedFilesCountsThoseThatCameBack) {
    auto entry = entryOf({move("/home/a", "/folder/a"), move("/home/b", "/folder/b")}, Kind::move);
    store->activity.set({entry});
    world.files.remove("/folder/b");
    store->putBack(entry.id);
    EXPECT_EQ(message(), "Moved 1 file back");
}

TEST_F(PutBack, ofRenamedFilesGivesTheOldNamesBack) {
    const auto entry = entryOf({move("/home/old", "/home/new")}, Kind::rename);
    store->activity.set({entry});
    store->files.set({sized("/home/new", 1)});
    store->putBack(entry.id);
    EXPECT_EQ(message(), "Old names are back");
    EXPECT_TRUE(exists("/home/old"));
    EXPECT_EQ(store->files.get().front().url, FileUrl("/home/old"));
}

TEST_F(PutBack, namesTheOriginalPlaceAlsoWhereTheFileGotAnotherName) {
    const auto entry = entryOf({move("/home/old", "/home/new")}, Kind::rename);
    world.files.addFile("/home/old", {.contents = "somebody's"});
    store->activity.set({entry});
    store->files.set({sized("/home/new", 1)});
    store->putBack(entry.id);
    EXPECT_EQ(world.files.contents("/home/old"), "somebody's");
    EXPECT_EQ(world.files.contents("/home/old (2)"), "/home/old");
    EXPECT_EQ(store->files.get().front().url, FileUrl("/home/old"));
}

TEST_F(PutBack, neverLeavesAGroupThatOffersAllOfItsCopies) {
    const auto entry = entryOf({move("/home/a", "/folder/a")}, Kind::move);
    world.files.addFile("/home/a", {.contents = "somebody's"});
    store->activity.set({entry});
    store->duplicates.set({{.id = "x",
                            .files = {sized("/folder/a", 1), sized("/b", 1), sized("/c", 1)},
                            .keep = FileUrl("/folder/a")}});
    store->putBack(entry.id);
    ASSERT_EQ(store->duplicates.get().size(), 1u);
    EXPECT_EQ(store->duplicates.get().front().keep, FileUrl("/b"));
    EXPECT_EQ(store->duplicates.get().front().extras(), std::vector{sized("/c", 1)});
}

TEST_F(PutBack, leavesNoTickAtAPlaceThatAnotherFileHas) {
    const auto entry =
        entryOf({move("/home/a", "/folder/a"), move("/home/b", "/folder/b")}, Kind::move);
    world.files.addFile("/home/a", {.contents = "somebody's"});
    store->activity.set({entry});
    store->checked.set({FileUrl("/folder/a"), FileUrl("/folder/b")});
    store->putBack(entry.id);
    EXPECT_EQ(store->checked.get(), Ticks{FileUrl("/home/b")});
}

TEST_F(PutBack, keepsTheKeptCopyKept) {
    const auto entry = entryOf({move("/home/a", "/folder/a")}, Kind::move);
    store->activity.set({entry});
    store->duplicates.set({{.id = "x",
                            .files = {sized("/folder/a", 1), sized("/b", 1)},
                            .keep = FileUrl("/folder/a")}});
    store->putBack(entry.id);
    EXPECT_EQ(store->duplicates.get().front().keep, FileUrl("/home/a"));
    EXPECT_EQ(store->duplicates.get().front().extras().size(), 1u);
}

TEST_F(PutBack, ofAnEntryThatNamesOnePlaceTwicePutsItsFileBackOnce) {
    const auto twice = [this](Kind kind) {
        return entryOf({move("/home/a", "/folder/a"), move("/home/b", "/folder/a")}, kind);
    };
    for (const auto& [kind, place] :
         {std::pair{Kind::move, "/home/a"}, {Kind::rename, "/home/b"}}) {
        const auto entry = twice(kind);
        world.files.addFile("/folder/a", {.contents = "a"});
        store->files.set({sized("/folder/a", 1)});
        store->activity.set({entry});
        store->putBack(entry.id);
        EXPECT_EQ(world.files.contents(place), "a");
        EXPECT_EQ(store->files.get(), std::vector{sized(place, 1)});
        world.files.remove(place);
    }
    EXPECT_FALSE(world.files.exists(FileUrl("/home/a")));
}

TEST_F(PutBack, thatTakesLongShowsHowFarItIs) {
    std::vector<Move> moves;
    for (int i = 0; i < 4; ++i)
        moves.push_back(move("/home/" + std::to_string(i), "/Trash/" + std::to_string(i)));
    const auto entry = entryOf(moves);
    store->activity.set({entry});
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::move)
            world.clock.set(world.clock.now() + Seconds{0.2});
    });
    std::vector<std::optional<Busy>> shown;
    const auto watch = store->busy.observe([&] { shown.push_back(store->busy.get()); });
    store->putBack(entry.id);
    EXPECT_EQ(shown,
              (std::vector<std::optional<Busy>>{Busy{1, 4}, Busy{2, 4}, Busy{3, 4}, std::nullopt}));
}

class Undo : public PutBack {};

TEST_F(Undo, putsBackTheNewestEntryOnly) {
    const auto newest = entryOf({move("/home/new", "/Trash/new")});
    const auto older = entryOf({move("/home/older", "/Trash/older")});
    store->activity.set({newest, older});
    store->undoLast();
    EXPECT_TRUE(exists("/home/new"));
    store->undoLast();
    EXPECT_FALSE(exists("/home/older")) << "it does not reach back";
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(Undo, hasNothingToDoWithoutEntries) {
    store->undoLast();
    EXPECT_FALSE(store->toast.get());
}

TEST_F(Undo, doesNotReachAnotherEntryThroughTheToast) {
    const auto older = entryOf({move("/home/older", "/Trash/older")});
    auto newest = entryOf({move("/home/new", "/Trash/new")});
    newest.restored = true;
    store->activity.set({newest, older});
    store->undoFromToast();
    EXPECT_FALSE(exists("/home/older"));
}

class ShowInTrash : public PutBack {};

TEST_F(ShowInTrash, revealsEveryFileOfTheEntryInOrderThereOrNot) {
    const auto entry = entryOf({move("/b", "/Trash/b"), move("/a", "/Trash/a")});
    world.files.remove("/Trash/a");
    store->activity.set({entry});
    store->showInTrash(entry.id);
    EXPECT_EQ(world.workspace.revealed,
              (std::vector<std::vector<FileUrl>>{{FileUrl("/Trash/b"), FileUrl("/Trash/a")}}));
}

TEST_F(ShowInTrash, ofNoEntryOrAnUnknownOneDoesNothing) {
    store->showInTrash(std::nullopt);
    store->showInTrash(Uuid::random());
    EXPECT_TRUE(world.workspace.revealed.empty());
}

class Freed : public PutBack {
  protected:
    ActivityEntry trashedAgo(Seconds age) {
        return {.id = Uuid::random(), .date = ago(age), .moves = {move("/a", "/Trash/a")}};
    }
};

TEST_F(Freed, thisWeekIsTheLastSevenDays) {
    store->activity.set({trashedAgo(7 * day), trashedAgo(7 * day + Seconds{1})});
    EXPECT_EQ(store->freedThisWeek(), 10);
}

TEST_F(Freed, thisMonthIsTheCalendarMonth) {
    // It is the 14th of November.
    store->activity.set({trashedAgo(8 * day), trashedAgo(16 * day)});
    EXPECT_EQ(store->freedThisMonth(), 10);
    EXPECT_EQ(store->freedThisWeek(), 0);
}

TEST_F(Freed, leavesOutWhatWasPutBackAndOtherKinds) {
    auto restored = trashedAgo(day);
    restored.restored = true;
    auto moved = trashedAgo(day);
    moved.kind = Kind::move;
    store->activity.set({restored, moved});
    EXPECT_EQ(store->freedThisWeek(), 0);
    EXPECT_EQ(store->freedThisMonth(), 0);
}

}  // namespace
}  // namespace nookwise
