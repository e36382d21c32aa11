#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

using Kind = ActivityEntry::Kind;

class Renaming : public StoreFixture {
  protected:
    Renaming() {
        world.files.addFile(a.path(), {.contents = "a", .allocated = 4'096, .added = ago(day)});
        world.files.addFile(b.path(), {.contents = "b", .allocated = 8'192, .added = ago(day)});
        store = launch();
        scan(*store);
    }

    static RenameRow row(const FileUrl& url, std::string newName, std::int64_t size = 1) {
        return {.file = {.url = url, .size = size}, .newName = std::move(newName), .note = {}};
    }
    std::string message() const { return store->toast.get()->message; }
    Paths listed() const {
        Paths result;
        for (const auto& file : store->files.get()) result.emplace_back(file.url.path());
        return result;
    }

    const FileUrl a{"/home/user/Downloads/a.pdf"};
    const FileUrl b{"/home/user/Downloads/b.pdf"};
    const FileUrl invoice{"/home/user/Downloads/Invoice.pdf"};
    std::shared_ptr<AppStore> store;
};

TEST_F(Renaming, isRecordedAndSaved) {
    store->applyRenames({row(a, "Invoice.pdf", 4'096), row(b, "Letter.pdf", 8'192)});
    ASSERT_EQ(store->activity.get().size(), 1u);
    const auto& entry = store->activity.get().front();
    EXPECT_EQ(entry.title, "Renamed 2 files by the text inside");
    EXPECT_EQ(entry.source, "Smart rename");
    EXPECT_EQ(entry.kind, Kind::rename);
    EXPECT_EQ(entry.date, now);
    EXPECT_FALSE(entry.restored);
    const std::vector<ActivityEntry::Move> moves{
        {.original = a, .inTrash = invoice, .size = 4'096},
        {.original = b, .inTrash = FileUrl("/home/user/Downloads/Letter.pdf"), .size = 8'192}};
    EXPECT_EQ(entry.moves, moves);
    EXPECT_EQ(launch()->activity.get(), store->activity.get());
}

TEST_F(Renaming, saysSoWithTheEntry) {
    store->applyRenames({row(a, "Invoice.pdf"), row(b, "Letter.pdf")});
    EXPECT_EQ(message(), "Renamed 2 files");
    EXPECT_EQ(store->toast.get()->entryID, store->activity.get().front().id);
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
}

TEST_F(Renaming, ofOneFileSaysFile) {
    store->applyRenames({row(a, "Invoice.pdf")});
    EXPECT_EQ(message(), "Renamed 1 file");
    EXPECT_EQ(store->activity.get().front().title, "Renamed 1 file by the text inside");
}

TEST_F(Renaming, countsWhatWasRenamedOnly) {
    world.files.remove(b.path());
    store->applyRenames({row(a, "Invoice.pdf"), row(b, "Letter.pdf"), row(invoice, "Invoice.pdf")});
    EXPECT_EQ(message(), "Renamed 1 file");
    EXPECT_EQ(store->activity.get().front().moves.size(), 1u);
}

TEST_F(Renaming, takesTheNextFreeName) {
    world.files.addFile(invoice.path(), {.contents = "other"});
    store->applyRenames({row(a, "Invoice.pdf")});
    EXPECT_EQ(world.files.contents("/home/user/Downloads/Invoice (2).pdf"), "a");
    EXPECT_EQ(world.files.contents(invoice.path()), "other");
    EXPECT_EQ(listed(), (Paths{"/home/user/Downloads/Invoice (2).pdf", std::string(b.path())}));
}

TEST_F(Renaming, takesTheResultsAlongWithoutAScan) {
    store->checked.set({a});
    store->texts.set({{a, SharedBytes("Text")}});
    store->lowerTexts.set({{a, SharedBytes("text")}});
    store->sources.set({{a, SharedBytes("Gmail")}});
    store->piles.set({{PileKind::forgotten, {{sized(a.path(), 1), "reason", true}}}});
    store->duplicates.set({{.id = "x", .files = {sized(a.path(), 1), sized("/b", 1)}, .keep = a}});
    store->applyRenames({row(a, "Invoice.pdf")});
    EXPECT_EQ(listed(), (Paths{std::string(invoice.path()), std::string(b.path())}));
    EXPECT_EQ(store->checked.get(), Ticks{invoice});
    EXPECT_TRUE(store->texts.get().contains(invoice));
    EXPECT_TRUE(store->lowerTexts.get().contains(invoice));
    EXPECT_TRUE(store->sources.get().contains(invoice));
    EXPECT_EQ(paths(store->piles.get().at(PileKind::forgotten)),
              Paths{std::string(invoice.path())});
    EXPECT_EQ(store->duplicates.get().front().keep, invoice);
}

TEST_F(Renaming, takesTheRecordsOfWhatIsInsideAPackageAlong) {
    const FileUrl package("/home/user/Downloads/plan.pages");
    const FileUrl preview("/home/user/Downloads/plan.pages/preview.png");
    world.files.addPackage(package.path());
    world.files.addFile(preview.path());
    store->files.set({sized(preview.path(), 1)});
    store->texts.set({{preview, SharedBytes("Text")}});
    store->applyRenames({row(package, "Garden.pages")});
    EXPECT_TRUE(
        store->texts.get().contains(FileUrl("/home/user/Downloads/Garden.pages/preview.png")));
}

TEST_F(Renaming, canBeUndone) {
    store->applyRenames({row(a, "Invoice.pdf"), row(b, "Letter.pdf")});
    store->undoLast();
    EXPECT_EQ(message(), "Old names are back");
    EXPECT_EQ(listed(), (Paths{std::string(a.path()), std::string(b.path())}));
    EXPECT_EQ(world.files.contents(a.path()), "a");
    EXPECT_EQ(world.files.contents(b.path()), "b");
    EXPECT_FALSE(world.files.exists(invoice));
    EXPECT_EQ(store->fileOpsVersion.get(), 2);
}

TEST_F(Renaming, thatHandsNamesOnCanBeUndone) {
    store->applyRenames({row(b, "c.pdf"), row(a, "b.pdf")});
    EXPECT_EQ(world.files.contents(b.path()), "a");
    store->undoLast();
    EXPECT_EQ(world.files.contents(a.path()), "a");
    EXPECT_EQ(world.files.contents(b.path()), "b");
    EXPECT_FALSE(world.files.exists(FileUrl("/home/user/Downloads/c.pdf")));
    EXPECT_EQ(listed(), (Paths{std::string(a.path()), std::string(b.path())}));
}

TEST_F(Renaming, thatExchangesNamesCanBeUndone) {
    store->applyRenames({row(a, "b.pdf"), row(b, "a.pdf")});
    EXPECT_EQ(world.files.contents(a.path()), "b");
    store->undoLast();
    EXPECT_EQ(world.files.contents(a.path()), "a");
    EXPECT_EQ(world.files.contents(b.path()), "b");
    EXPECT_FALSE(world.files.exists(FileUrl("/home/user/Downloads/b (2).pdf")));
    EXPECT_EQ(listed(), (Paths{std::string(a.path()), std::string(b.path())}));
}

TEST_F(Renaming, ofNothingIsNothing) {
    store->applyRenames({});
    store->applyRenames({row(a, "a.pdf"), row(b, "b.pdf")});
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_FALSE(store->toast.get());
    EXPECT_EQ(store->fileOpsVersion.get(), 0);
}

TEST_F(Renaming, thatFailsIsToldAndNotRecorded) {
    world.files.forbidChanges("/home/user/Downloads");
    store->applyRenames({row(a, "Invoice.pdf"), row(b, "b.pdf")});
    EXPECT_EQ(message(), "Couldn’t rename that file");
    EXPECT_FALSE(store->toast.get()->entryID);
    store->applyRenames({row(a, "Invoice.pdf"), row(b, "Letter.pdf")});
    EXPECT_EQ(message(), "Couldn’t rename those files");
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_EQ(store->fileOpsVersion.get(), 0);
    EXPECT_EQ(listed(), (Paths{std::string(a.path()), std::string(b.path())}));
}

TEST_F(Renaming, showsHowFarItIsWhenItTakesLong) {
    std::vector<RenameRow> rows;
    for (int i = 0; i < 5; ++i) {
        const auto path = "/home/user/Downloads/" + std::to_string(i) + ".png";
        world.files.addFile(path);
        rows.push_back(row(FileUrl(path), "New " + std::to_string(i) + ".png"));
    }
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::move)
            world.clock.set(world.clock.now() + Seconds{0.06});
    });
    std::vector<std::optional<Busy>> shown;
    const auto watch = store->busy.observe([&] { shown.push_back(store->busy.get()); });
    store->applyRenames(rows);
    EXPECT_EQ(shown,
              (std::vector<std::optional<Busy>>{Busy{2, 5}, Busy{3, 5}, Busy{4, 5}, std::nullopt}));
}

class FilesToRename : public Renaming {
  protected:
    Paths chosen() const {
        Paths result;
        for (const auto& file : *store->renameFiles.get()) result.emplace_back(file.url.path());
        return result;
    }
};

TEST_F(FilesToRename, followFilesThatAreRenamed) {
    store->renameFiles.set(std::vector{sized(a.path(), 1), sized(b.path(), 1)});
    store->applyRenames({row(a, "Invoice.pdf")});
    EXPECT_EQ(chosen(), (Paths{std::string(invoice.path()), std::string(b.path())}));
}

TEST_F(FilesToRename, loseFilesThatAreTrashed) {
    store->renameFiles.set(std::vector{sized(a.path(), 1), sized(b.path(), 1)});
    const auto trash = [&](const FileUrl& url) {
        store->requestTrash({sized(url.path(), 1)}, std::nullopt, "Ask");
        store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    };
    trash(a);
    EXPECT_EQ(chosen(), Paths{std::string(b.path())});
    trash(b);
    EXPECT_FALSE(store->renameFiles.get()) << "without any file there is nothing to show";
}

TEST_F(FilesToRename, areNotToldOfOtherFiles) {
    store->renameFiles.set(std::vector{sized(b.path(), 1)});
    int changes = 0;
    const auto watch = store->renameFiles.observe([&] { ++changes; });
    store->applyRenames({row(a, "Invoice.pdf")});
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(chosen(), Paths{std::string(b.path())});
}

}  // namespace
}  // namespace nookwise
