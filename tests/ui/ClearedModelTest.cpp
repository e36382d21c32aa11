#include "tests/ui/StoreFixture.h"
#include "ui/sweep/ClearedModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class ClearedShown : public StoreFixture {
  protected:
    void clearForgotten() {
        const FileUrl path("/home/user/Downloads/a.zip");
        fake.files.addFile(path.path(), {.size = 600 * megabyte});
        setPile(PileKind::forgotten, {ticked(path.path(), 600 * megabyte)});
        store->select(PileKind::forgotten);
        store->confirm(
            trashRequest({file(path.path(), 600 * megabyte)}, PileKind::forgotten, "Forgotten"),
            AppStore::NextTime::ask);
    }

    PilesModel piles{*store};
    ClearedModel cleared{*store, piles};
};

TEST_F(ClearedShown, saysNothingOfAPileThatWasEmptyBefore) {
    store->select(PileKind::forgotten);
    EXPECT_FALSE(cleared.cleared());
    EXPECT_EQ(cleared.size(), QString());
}

TEST_F(ClearedShown, saysWhatIsBackAndWhatIsNext) {
    setPile(PileKind::installers, {ticked("/b", 50 * megabyte), ticked("/c", megabyte)});
    setPile(PileKind::large, {unticked("/d", 700 * megabyte)});
    store->duplicates.set({copies({"/x", "/y"}, 60 * megabyte)});
    clearForgotten();
    EXPECT_TRUE(cleared.cleared());
    EXPECT_EQ(cleared.size(), QStringLiteral("600 MB"));
    EXPECT_EQ(cleared.tail(), QStringLiteral(" is back. Next up:"));
    EXPECT_EQ(cleared.nextTitle(), QStringLiteral("Large files"));
    EXPECT_EQ(texts(cleared.rows(), "name"), QStringList({"large", "duplicates", "installers"}));
    EXPECT_EQ(texts(cleared.rows(), "title"),
              QStringList({"Large files", "Duplicates", "Old installers"}));
    EXPECT_EQ(texts(cleared.rows(), "size"), QStringList({"700 MB", "60 MB", "51 MB"}));
    EXPECT_EQ(texts(cleared.rows(), "countText"), QStringList({"1 file", "1 copy", "2 files"}));
    EXPECT_EQ(texts(cleared.rows(), "count"), QStringList({"1", "1", "2"}));
}

TEST_F(ClearedShown, countsCopies) {
    store->duplicates.set({copies({"/x", "/y", "/z"}, 60 * megabyte)});
    EXPECT_EQ(texts(cleared.rows(), "countText"), QStringList({"2 copies"}));
}

TEST_F(ClearedShown, goesOnWithAPile) {
    setPile(PileKind::installers, {ticked("/b", 50 * megabyte)});
    setPile(PileKind::large, {unticked("/d", 700 * megabyte)});
    clearForgotten();
    cleared.open(1);
    EXPECT_EQ(store->selectedPile.get(), PileKind::installers);
    EXPECT_FALSE(cleared.cleared());
}

TEST_F(ClearedShown, goesNowhereFromARowThatIsNotThere) {
    clearForgotten();
    cleared.open(0);
    cleared.open(-1);
    EXPECT_EQ(store->selectedPile.get(), PileKind::forgotten);
    EXPECT_TRUE(cleared.cleared());
}

TEST_F(ClearedShown, saysWhenEverythingIsClean) {
    clearForgotten();
    EXPECT_EQ(cleared.tail(), QStringLiteral(" is back. Everything is clean."));
    EXPECT_EQ(cleared.nextTitle(), QString());
    cleared.openHome();
    EXPECT_EQ(store->section.get(), AppSection::home);
    cleared.openActivity();
    EXPECT_EQ(store->section.get(), AppSection::activity);
}

TEST_F(ClearedShown, isOverOnceFilesAreBack) {
    clearForgotten();
    QSignalSpy changed(&cleared, &ClearedModel::changed);
    setPile(PileKind::forgotten, {ticked("/home/user/Downloads/b.zip", megabyte)});
    EXPECT_GE(changed.size(), 1);
    EXPECT_FALSE(cleared.cleared());
}

TEST_F(ClearedShown, isSaidOfTheShownPileOnly) {
    clearForgotten();
    store->selectedPile.set(PileKind::large);
    EXPECT_FALSE(cleared.cleared());
}

}  // namespace
}  // namespace nookwise
