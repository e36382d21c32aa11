#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

constexpr auto log = "/home/user/.local/share/Nookwise/activity.json";

class Sweeping : public StoreFixture {
  protected:
    Sweeping() {
        addForgotten();
        addInstaller();
        addScreenshot();
        addLarge();
        addDuplicates();
        store = launch();
        scan(*store);
    }

    std::vector<FileItem> filesOf(PileKind pile) const {
        std::vector<FileItem> files;
        for (const auto& item : store->piles.get().at(pile)) files.push_back(item.file);
        return files;
    }
    void request(PileKind pile) { store->requestTrash(filesOf(pile), pile, title(pile)); }
    void confirm(AppStore::NextTime nextTime = AppStore::NextTime::ask) {
        ASSERT_TRUE(store->pendingTrash.get());
        store->confirm(*store->pendingTrash.get(), nextTime);
    }
    void sweep(PileKind pile) {
        request(pile);
        confirm();
    }
    std::string message() const {
        return store->toast.get() ? store->toast.get()->message : std::string();
    }

    std::shared_ptr<AppStore> store;
};

TEST_F(Sweeping, ofNothingAsksNothing) {
    store->requestTrash({}, PileKind::large, "Large files");
    EXPECT_FALSE(store->pendingTrash.get());
    EXPECT_FALSE(store->toast.get());
}

TEST_F(Sweeping, asksFirst) {
    request(PileKind::large);
    ASSERT_TRUE(store->pendingTrash.get());
    EXPECT_EQ(store->pendingTrash.get()->title, "Move 1 file to the Trash?");
    EXPECT_TRUE(world.files.exists(FileUrl("/home/user/Documents/large")));
    store->dismissTrash();
    EXPECT_FALSE(store->pendingTrash.get());
    EXPECT_TRUE(world.files.exists(FileUrl("/home/user/Documents/large")));
    EXPECT_TRUE(store->activity.get().empty());
}

TEST_F(Sweeping, movesToTheTrashOnceConfirmed) {
    sweep(PileKind::forgotten);
    EXPECT_FALSE(store->pendingTrash.get());
    EXPECT_FALSE(world.files.exists(FileUrl("/home/user/Downloads/forgotten")));
    EXPECT_TRUE(world.files.exists(FileUrl("/Trash/forgotten")));
    EXPECT_EQ(message(), "1 file moved to Trash · 0 KB freed");
}

TEST_F(Sweeping, isRecordedAtTheHeadOfTheLogAndSaved) {
    sweep(PileKind::forgotten);
    sweep(PileKind::large);
    ASSERT_EQ(store->activity.get().size(), 2u);
    const auto& entry = store->activity.get().back();
    EXPECT_EQ(entry.title, "Swept 1 downloads");
    EXPECT_EQ(entry.source, "Forgotten downloads");
    EXPECT_EQ(entry.date, now);
    EXPECT_FALSE(entry.restored);
    EXPECT_EQ(entry.kind, std::nullopt);
    EXPECT_EQ(entry.moves,
              (std::vector<ActivityEntry::Move>{
                  {FileUrl("/home/user/Downloads/forgotten"), FileUrl("/Trash/forgotten"), 10}}));
    EXPECT_EQ(store->activity.get().front().title, "Swept 1 large files");
    EXPECT_EQ(store->toast.get()->entryID, store->activity.get().front().id);
    EXPECT_EQ(launch()->activity.get(), store->activity.get()) << "the next start finds it";
}

TEST_F(Sweeping, updatesEveryListWithoutAScan) {
    const FileUrl url("/home/user/Desktop/Screenshot.png");
    store->texts.set({{url, SharedBytes("Text")}});
    store->lowerTexts.set({{url, SharedBytes("text")}});
    store->sources.set({{url, SharedBytes("Gmail")}});
    store->select(PileKind::screenshots);
    store->tickAll();
    sweep(PileKind::screenshots);
    EXPECT_TRUE(store->texts.get().empty());
    EXPECT_TRUE(store->lowerTexts.get().empty());
    EXPECT_TRUE(store->sources.get().empty());
    EXPECT_TRUE(store->checked.get().empty());
    EXPECT_TRUE(store->piles.get().at(PileKind::screenshots).empty()) << "the pile stays, empty";
    EXPECT_TRUE(store->screenshots.get().empty());
    EXPECT_FALSE(store->shelves.get().contains(ShelfKind::pictures));
    for (const auto& file : store->files.get()) EXPECT_NE(file.url, url);
    for (const auto& file : store->justLanded.get()) EXPECT_NE(file.url, url);
    EXPECT_EQ(world.tasks.waitingBackgroundTasks(), 0u);
}

TEST_F(Sweeping, goesStepByStepInAFixedOrder) {
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 150, .totalBytes = 1'000});
    std::vector<std::string> steps;
    std::vector<Subscription> watches;
    const auto watch = [&](auto& field, std::string name) {
        watches.push_back(field.observe([&steps, name] { steps.push_back(name); }));
    };
    watch(store->activity, "activity");
    watch(store->files, "files");
    watch(store->justLanded, "library");
    watch(store->piles, "piles");
    watch(store->justCleared, "just cleared");
    watch(store->freeBytes, "disk");
    watch(store->toast, "toast");
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::trash) steps.emplace_back("trash");
        if (operation.kind == FakeOperation::Kind::replaceContents) steps.emplace_back("log saved");
    });
    sweep(PileKind::forgotten);
    EXPECT_EQ(steps, (std::vector<std::string>{"trash", "activity", "log saved", "files", "library",
                                               "piles", "just cleared", "disk", "toast"}));
}

TEST_F(Sweeping, keepsMoreEntriesInMemoryThanInTheFile) {
    std::vector<ActivityEntry> many(500, ActivityEntry{.id = Uuid::random(), .title = "older"});
    store->activity.set(many);
    sweep(PileKind::forgotten);
    EXPECT_EQ(store->activity.get().size(), 501u);
    EXPECT_EQ(launch()->activity.get().size(), 500u);
}

TEST_F(Sweeping, readsTheDiskFiguresAnew) {
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 150, .totalBytes = 1'000});
    sweep(PileKind::forgotten);
    EXPECT_EQ(store->freeBytes.get(), 150);
}

TEST_F(Sweeping, notesAPileThatBecameEmptyUntilAnotherIsShown) {
    sweep(PileKind::forgotten);
    ASSERT_TRUE(store->justCleared.get());
    EXPECT_EQ(store->justCleared.get()->pile, PileKind::forgotten);
    EXPECT_EQ(store->justCleared.get()->bytes, 10);
    store->select(PileKind::large);
    EXPECT_FALSE(store->justCleared.get());
}

TEST_F(Sweeping, notesNoPileOfWhichSomethingIsLeft) {
    world.files.addFile("/home/user/Documents/larger", {.allocated = 600 * megabyte});
    scan(*store);
    store->requestTrash({filesOf(PileKind::large).front()}, PileKind::large, "Large files");
    confirm();
    EXPECT_FALSE(store->justCleared.get());
}

TEST_F(Sweeping, notesNoPileForFilesFromElsewhere) {
    store->requestTrash(filesOf(PileKind::forgotten), std::nullopt, "Ask");
    confirm();
    EXPECT_EQ(store->activity.get().front().title, "Trashed 1 files");
    EXPECT_EQ(store->activity.get().front().source, "Ask");
    EXPECT_FALSE(store->justCleared.get());
}

TEST_F(Sweeping, asksNoMoreForASourceOnceToldSo) {
    request(PileKind::installers);
    confirm(AppStore::NextTime::goAhead);
    EXPECT_EQ(world.defaults.boolean("skipConfirm.Old installers"), true);
    addInstaller();
    scan(*store);
    request(PileKind::installers);
    EXPECT_FALSE(store->pendingTrash.get());
    EXPECT_FALSE(world.files.exists(FileUrl("/home/user/Desktop/Blue Kite.dmg")));
    request(PileKind::screenshots);
    EXPECT_TRUE(store->pendingTrash.get()) << "another source still asks";
}

TEST_F(Sweeping, asksAgainForEverySourceOnceToldSo) {
    world.defaults.setBoolean("skipConfirm.Old installers", true);
    world.defaults.setBoolean("skipConfirm.Somewhere else", true);
    world.defaults.setBoolean("onboarded", true);
    store->askBeforeEveryTrash();
    EXPECT_FALSE(world.defaults.boolean("skipConfirm.Old installers"));
    EXPECT_FALSE(world.defaults.boolean("skipConfirm.Somewhere else"));
    EXPECT_TRUE(world.defaults.boolean("onboarded"));
    request(PileKind::installers);
    EXPECT_TRUE(store->pendingTrash.get());
}

TEST_F(Sweeping, thatMovesNothingSaysSoAndChangesNothing) {
    world.files.forbidChanges("/home/user/Downloads");
    world.files.forbidChanges("/home/user/Documents");
    store->justCleared.set(AppStore::JustCleared{PileKind::screenshots, 7});
    world.files.setVolumeFigures(VolumeFigures{.availableBytes = 50, .totalBytes = 1'000});
    store->requestTrash({filesOf(PileKind::forgotten).front(), filesOf(PileKind::large).front()},
                        PileKind::forgotten, "Forgotten downloads");
    confirm();
    EXPECT_EQ(message(), "Couldn’t move 2 files to the Trash");
    EXPECT_FALSE(store->toast.get()->entryID);
    EXPECT_TRUE(store->activity.get().empty());
    ASSERT_TRUE(store->justCleared.get());
    EXPECT_EQ(store->justCleared.get()->pile, PileKind::screenshots);
    EXPECT_EQ(store->freeBytes.get(), 100) << "the disk is not asked again";
    EXPECT_EQ(filesOf(PileKind::forgotten).size(), 1u);
    EXPECT_FALSE(world.files.exists(FileUrl(log)));
}

TEST_F(Sweeping, reportsAndKeepsWhatItSkipped) {
    world.files.addFile("/home/user/Documents/larger", {.allocated = 600 * megabyte});
    scan(*store);
    world.files.forbidChanges("/home/user/Documents/larger");
    sweep(PileKind::large);
    EXPECT_EQ(message(), "1 file moved to Trash · 500 MB freed · 1 skipped");
    EXPECT_EQ(paths(store->piles.get().at(PileKind::large)), Paths{"/home/user/Documents/larger"});
    EXPECT_FALSE(store->justCleared.get());
}

TEST_F(Sweeping, withALogThatCannotBeSavedStillKeepsItInMemory) {
    world.files.forbidChanges(log);
    sweep(PileKind::forgotten);
    EXPECT_EQ(store->activity.get().size(), 1u);
    store->undoLast();
    EXPECT_TRUE(world.files.exists(FileUrl("/home/user/Downloads/forgotten")));
}

TEST_F(Sweeping, makesAScanThatIsUnderWayBeginAnew) {
    store->scan(ScanKind::quiet);
    // It has read the file before it goes.
    const auto reading = world.tasks.takeBackgroundTask();
    reading();
    sweep(PileKind::forgotten);
    world.tasks.runEverything();
    EXPECT_TRUE(store->piles.get().at(PileKind::forgotten).empty());
    EXPECT_EQ(store->phase.get(), Phase::ready);
}

TEST_F(Sweeping, thatTakesLongShowsHowFarItIs) {
    std::vector<FileItem> files;
    for (int i = 0; i < 5; ++i) {
        const auto path = "/home/user/Downloads/" + std::to_string(i);
        world.files.addFile(path);
        files.push_back(sized(path, 0));
    }
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::trash)
            world.clock.set(world.clock.now() + Seconds{0.06});
    });
    std::vector<std::optional<Busy>> shown;
    const auto watch = store->busy.observe([&] { shown.push_back(store->busy.get()); });
    store->requestTrash(files, PileKind::forgotten, "Forgotten downloads");
    confirm();
    EXPECT_EQ(shown,
              (std::vector<std::optional<Busy>>{Busy{2, 5}, Busy{3, 5}, Busy{4, 5}, std::nullopt}));
}

}  // namespace
}  // namespace nookwise
