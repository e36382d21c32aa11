#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

/// A folder with what the store knows of a file in it, and a file of a like name beside it.
class FolderOnItsWay : public StoreFixture {
  protected:
    FolderOnItsWay() {
        world.files.addFile(inside, {.size = 9'000, .modified = now, .added = ago(day)});
        world.files.addFile(beside, {.contents = "b", .added = ago(day)});
        world.files.addFolder("/home/user/Documents/Projects");
        world.reader.setPdf(inside, "Dear Ann");
        store = launch();
        scan(*store);
        const FileUrl file(inside);
        store->sources.set({{file, SharedBytes("Gmail")}});
        store->piles.set({{PileKind::forgotten, {{sized(inside, 1), "reason", true}}}});
        store->checked.set({file});
        store->duplicates.set({{.id = "x",
                                .files = {sized(inside, 1), sized(beside, 1), sized("/c", 1)},
                                .keep = file}});
    }

    void move() {
        store->transfer({FileUrl(folder)}, FileUrl("/home/user/Documents/Projects"),
                        TransferKind::move);
        world.tasks.runEverything();
    }
    Paths listed() const {
        Paths result;
        for (const auto& file : store->files.get()) result.emplace_back(file.url.path());
        return result;
    }
    /// That everything that the store knows of the file it knows at this place.
    void expectKnownAt(std::string_view path) const {
        const FileUrl url(path);
        EXPECT_EQ(listed(), (Paths{std::string(path), beside}));
        EXPECT_TRUE(store->texts.get().contains(url));
        EXPECT_EQ(store->texts.get().size(), 2u) << "the file beside it has one, too";
        EXPECT_TRUE(store->lowerTexts.get().contains(url));
        EXPECT_TRUE(store->sources.get().contains(url));
        EXPECT_EQ(paths(store->piles.get().at(PileKind::forgotten)), Paths{std::string(path)});
        EXPECT_EQ(store->checked.get(), Ticks{url});
        EXPECT_EQ(store->duplicates.get().front().files.front().url, url);
        EXPECT_EQ(store->duplicates.get().front().keep, url);
        EXPECT_EQ(store->duplicates.get().front().files[1].url, FileUrl(beside));
    }

    static constexpr const char* folder = "/home/user/Downloads/mail";
    static constexpr const char* inside = "/home/user/Downloads/mail/old/letter.pdf";
    static constexpr const char* beside = "/home/user/Downloads/mail.txt";
    static constexpr const char* moved = "/home/user/Documents/Projects/mail/old/letter.pdf";
    std::shared_ptr<AppStore> store;
};

TEST_F(FolderOnItsWay, takesWhatIsKnownOfTheFilesInsideAlong) {
    move();
    expectKnownAt(moved);
}

TEST_F(FolderOnItsWay, takesThemBackWhenItIsPutBack) {
    move();
    store->undoLast();
    world.tasks.runEverything();
    expectKnownAt(inside);
}

TEST_F(FolderOnItsWay, thatComesBackUnderAnotherNameOffersNoCopyOfWhatItHolds) {
    move();
    world.files.addFile(folder, {.contents = "in the way"});
    store->undoLast();
    world.tasks.runEverything();
    ASSERT_EQ(store->duplicates.get().size(), 1u);
    EXPECT_EQ(store->duplicates.get().front().files.size(), 2u);
    EXPECT_EQ(store->duplicates.get().front().keep, FileUrl(beside));
}

TEST_F(FolderOnItsWay, toTheTrashTakesThemOutOfTheResults) {
    store->requestTrash({sized(folder, 1)}, std::nullopt, "Split view");
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    EXPECT_EQ(listed(), Paths{beside});
    EXPECT_FALSE(store->texts.get().contains(FileUrl(inside)));
    EXPECT_TRUE(store->sources.get().empty());
    EXPECT_TRUE(store->piles.get().at(PileKind::forgotten).empty());
    EXPECT_TRUE(store->checked.get().empty());
    EXPECT_EQ(store->duplicates.get().front().keep, FileUrl(beside));
}

TEST_F(FolderOnItsWay, takesItemsOfPilesAlongThatLieOutsideTheScannedFolders) {
    const auto shots = std::string(folder) + "/shots";
    store->piles.set({{PileKind::screenshots, {{sized(shots + "/1.png", 1), "reason", true}}}});
    move();
    EXPECT_EQ(paths(store->piles.get().at(PileKind::screenshots)),
              Paths{"/home/user/Documents/Projects/mail/shots/1.png"});
}

TEST_F(FolderOnItsWay, removedAsACopyIsTakenOutOfTheResults) {
    store->transfer({FileUrl(folder)}, FileUrl("/home/user/Documents/Projects"),
                    TransferKind::copy);
    world.tasks.runEverything();
    scan(*store);
    ASSERT_EQ(listed(), (Paths{moved, inside, beside}));
    store->undoLast();
    EXPECT_EQ(listed(), (Paths{inside, beside}));
}

TEST_F(FolderOnItsWay, isNotReadAgainAtItsNewPlace) {
    move();
    const auto read = world.reader.calls().size();
    scan(*store);
    EXPECT_EQ(world.reader.calls().size(), read);
    EXPECT_TRUE(store->texts.get().contains(FileUrl(moved)));
}

}  // namespace
}  // namespace nookwise
