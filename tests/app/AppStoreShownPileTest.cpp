#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

class ShownPile : public StoreFixture {};

TEST_F(ShownPile, isKeptWhenItStillHasItems) {
    addForgotten();
    addLarge();
    const auto store = launch();
    store->select(PileKind::large);
    scan(*store);
    EXPECT_EQ(store->selectedPile.get(), PileKind::large);
}

TEST_F(ShownPile, becomesForgottenBeforeLargeWhenItIsEmpty) {
    addForgotten();
    addLarge();
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(store->selectedPile.get(), PileKind::forgotten);
}

TEST_F(ShownPile, becomesTheFirstOneWithItemsInOrder) {
    addScreenshot();
    addLarge();
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(store->selectedPile.get(), PileKind::screenshots);
    addInstaller();
    store->select(PileKind::forgotten);
    scan(*store);
    EXPECT_EQ(store->selectedPile.get(), PileKind::installers);
}

TEST_F(ShownPile, isUnchangedWhenOnlyDuplicatesHaveItems) {
    addDuplicates();
    const auto store = launch();
    store->select(PileKind::screenshots);
    scan(*store);
    EXPECT_EQ(store->duplicates.get().size(), 1u);
    EXPECT_EQ(store->selectedPile.get(), PileKind::screenshots);
}

TEST_F(ShownPile, staysInstallersWhenEveryPileIsEmptyAtFirst) {
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(store->selectedPile.get(), PileKind::installers);
}

TEST_F(ShownPile, isTickedAnewByEveryScan) {
    addForgotten();
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(store->checked.get(), (Ticks{FileUrl("/home/user/Downloads/forgotten")}));
    store->toggle(FileUrl("/home/user/Downloads/forgotten"));
    EXPECT_TRUE(store->checked.get().empty());
    scan(*store, ScanKind::quiet);
    EXPECT_EQ(store->checked.get(), (Ticks{FileUrl("/home/user/Downloads/forgotten")}));
}

TEST_F(ShownPile, isNotTickedWhereTheScannerDoesNot) {
    addLarge();
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(store->selectedPile.get(), PileKind::large);
    EXPECT_TRUE(store->checked.get().empty());
}

}  // namespace
}  // namespace nookwise
