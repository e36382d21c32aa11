#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

class Review : public StoreFixture {
  protected:
    Review() {
        store->piles.set({{PileKind::forgotten,
                           {{sized("/a", 1), "", true},
                            {sized("/b", 2), "", false},
                            {sized("/c", 3), "", true}}},
                          {PileKind::large, {{sized("/d", 4), "", false}}}});
    }

    static Ticks ticks(std::initializer_list<std::string_view> paths) {
        Ticks result;
        for (const auto path : paths) result.insert(FileUrl(path));
        return result;
    }

    std::shared_ptr<AppStore> store = launch();
};

TEST_F(Review, showsTheSelectedPileWithItsOwnTicks) {
    store->select(PileKind::forgotten);
    EXPECT_EQ(store->section.get(), AppSection::sweep);
    EXPECT_EQ(store->selectedPile.get(), PileKind::forgotten);
    EXPECT_EQ(store->checked.get(), ticks({"/a", "/c"}));
    store->select(PileKind::large);
    EXPECT_EQ(store->checked.get(), ticks({}));
}

TEST_F(Review, ticksAllOrNone) {
    store->select(PileKind::forgotten);
    store->tickAll();
    EXPECT_EQ(store->checked.get(), ticks({"/a", "/b", "/c"}));
    store->tickNone();
    EXPECT_TRUE(store->checked.get().empty());
}

TEST_F(Review, ofAPileThatIsMissingHasNoTicks) {
    store->select(PileKind::forgotten);
    store->select(PileKind::screenshots);
    EXPECT_EQ(store->selectedPile.get(), PileKind::screenshots);
    EXPECT_TRUE(store->checked.get().empty());
    EXPECT_TRUE(store->checkedItems().empty());
}

TEST_F(Review, ofDuplicatesChangesTheSectionOnly) {
    store->select(PileKind::forgotten);
    store->toggle(FileUrl("/a"));
    store->justCleared.set(AppStore::JustCleared{PileKind::large, 5});
    store->select(PileKind::duplicates);
    EXPECT_EQ(store->section.get(), AppSection::duplicates);
    EXPECT_EQ(store->selectedPile.get(), PileKind::forgotten);
    EXPECT_EQ(store->checked.get(), ticks({"/c"}));
    ASSERT_TRUE(store->justCleared.get().has_value());
    EXPECT_EQ(store->justCleared.get()->bytes, 5);
}

TEST_F(Review, ofThePileAlreadyShownBeginsAnew) {
    store->select(PileKind::forgotten);
    store->toggle(FileUrl("/a"));
    store->toggle(FileUrl("/b"));
    store->justCleared.set(AppStore::JustCleared{PileKind::forgotten, 5});
    store->section.set(AppSection::home);
    store->select(PileKind::forgotten);
    EXPECT_EQ(store->section.get(), AppSection::sweep);
    EXPECT_EQ(store->checked.get(), ticks({"/a", "/c"}));
    EXPECT_FALSE(store->justCleared.get().has_value());
}

TEST_F(Review, tellsOfEveryWriteOfWhatWasJustCleared) {
    int told = 0;
    const auto subscription = store->justCleared.observe([&] { ++told; });
    store->justCleared.set(AppStore::JustCleared{PileKind::large, 5});
    store->justCleared.set(AppStore::JustCleared{PileKind::large, 5});
    store->select(PileKind::large);
    store->select(PileKind::large);
    EXPECT_EQ(told, 4);
}

TEST_F(Review, resetsTheTicksToThePreselection) {
    store->select(PileKind::forgotten);
    store->checked.set(ticks({"/b", "/elsewhere"}));
    store->resetChecks();
    EXPECT_EQ(store->checked.get(), ticks({"/a", "/c"}));
}

TEST_F(Review, togglesATick) {
    store->select(PileKind::forgotten);
    int told = 0;
    const auto subscription = store->checked.observe([&] { ++told; });
    store->toggle(FileUrl("/a"));
    EXPECT_EQ(store->checked.get(), ticks({"/c"}));
    store->toggle(FileUrl("/b"));
    EXPECT_EQ(store->checked.get(), ticks({"/b", "/c"}));
    store->toggle(FileUrl("/a"));
    EXPECT_EQ(store->checked.get(), ticks({"/a", "/b", "/c"}));
    EXPECT_EQ(told, 3);
}

TEST_F(Review, togglesUrlsOfNoPileToo) {
    store->toggle(FileUrl("/elsewhere"));
    EXPECT_EQ(store->checked.get(), ticks({"/elsewhere"}));
    store->toggle(FileUrl("/elsewhere"));
    EXPECT_TRUE(store->checked.get().empty());
}

TEST_F(Review, listsTheTickedItemsOfTheShownPileInItsOrder) {
    store->select(PileKind::forgotten);
    EXPECT_EQ(paths(store->checkedItems()), (Paths{"/a", "/c"}));
    store->checked.set(ticks({"/c", "/b", "/d", "/elsewhere"}));
    EXPECT_EQ(paths(store->checkedItems()), (Paths{"/b", "/c"}));
    store->checked.set({});
    EXPECT_TRUE(store->checkedItems().empty());
}

TEST_F(Review, listsAFileThatIsInThePileTwiceTwice) {
    store->piles.set(
        {{PileKind::screenshots, {{sized("/a", 1), "", true}, {sized("/a", 1), "", true}}}});
    store->select(PileKind::screenshots);
    EXPECT_EQ(store->checked.get(), ticks({"/a"}));
    EXPECT_EQ(paths(store->checkedItems()), (Paths{"/a", "/a"}));
}

TEST_F(Review, tellsNobodyOfTicksThatStayTheSame) {
    store->select(PileKind::forgotten);
    int told = 0;
    const auto subscription = store->checked.observe([&] { ++told; });
    store->resetChecks();
    store->select(PileKind::forgotten);
    EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace nookwise
