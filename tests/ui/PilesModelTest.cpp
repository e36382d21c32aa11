#include "tests/ui/StoreFixture.h"
#include "ui/bridge/PilesModel.h"

#include <QFile>
#include <QSignalSpy>

namespace nookwise {
namespace {

class PilesShown : public StoreFixture {
  protected:
    QStringList selected() {
        QStringList names;
        for (int row = 0; row < piles.rows()->rowCount(); ++row) {
            if (value(piles.rows(), row, "selected").toBool())
                names += text(piles.rows(), row, "name");
        }
        return names;
    }

    PilesModel piles{*store};
};

TEST_F(PilesShown, areAlwaysFiveInTheirOrder) {
    EXPECT_EQ(texts(piles.rows(), "title"),
              QStringList({"Forgotten downloads", "Old installers", "Old screenshots",
                           "Large files", "Duplicates"}));
    EXPECT_EQ(texts(piles.rows(), "label"),
              QStringList({"untouched 90+ days", "apps already installed", "older than a month",
                           "over 500 MB each", "exact copies"}));
    EXPECT_EQ(texts(piles.rows(), "size"),
              QStringList({"nothing", "nothing", "nothing", "nothing", "nothing"}));
}

TEST_F(PilesShown, haveTheirDrawings) {
    for (const auto& name : texts(piles.rows(), "name")) {
        for (const char* part : {"-back", "-cards", "-cards2", "-cards1", "-front"}) {
            EXPECT_TRUE(QFile::exists(":/Nookwise/assets/art/folder-" + name + part + ".svg"));
        }
        EXPECT_TRUE(QFile::exists(":/Nookwise/assets/icons/" + name + ".svg"));
    }
}

TEST_F(PilesShown, showBytesAndCounts) {
    setPile(PileKind::large, {unticked("/a", 1'310 * megabyte), unticked("/b", 700 * megabyte)});
    store->duplicates.set({copies({"/x", "/y", "/z"}, 10 * megabyte)});
    EXPECT_EQ(text(piles.rows(), 3, "size"), QStringLiteral("2.01 GB"));
    EXPECT_EQ(value(piles.rows(), 3, "count").toInt(), 2);
    EXPECT_EQ(text(piles.rows(), 4, "size"), QStringLiteral("20 MB"));
    EXPECT_EQ(value(piles.rows(), 4, "count").toInt(), 2);
    EXPECT_EQ(piles.total(), 2'030 * megabyte);
}

TEST_F(PilesShown, ofEmptyFilesAreNotNothing) {
    setPile(PileKind::forgotten, {ticked("/a", 0)});
    EXPECT_EQ(text(piles.rows(), 0, "size"), QStringLiteral("Zero KB"));
}

TEST_F(PilesShown, areRankedByBytesWithoutTheEmptyOnes) {
    setPile(PileKind::forgotten, {ticked("/a", 5)});
    setPile(PileKind::installers, {ticked("/b", 9)});
    setPile(PileKind::screenshots, {});
    setPile(PileKind::large, {ticked("/c", 5)});
    std::vector<PileKind> kinds;
    for (const auto& pile : piles.largestFirst()) kinds.push_back(pile.kind);
    EXPECT_EQ(kinds, (std::vector{PileKind::installers, PileKind::forgotten, PileKind::large}));
}

TEST_F(PilesShown, markTheOneThatTheScreenShows) {
    store->select(PileKind::large);
    EXPECT_EQ(selected(), QStringList{"large"});
    store->section.set(AppSection::duplicates);
    EXPECT_EQ(selected(), QStringList{"duplicates"});
    store->section.set(AppSection::sweep);
    EXPECT_EQ(selected(), QStringList{"large"});
}

TEST_F(PilesShown, openOnTheirScreens) {
    piles.open(2);
    EXPECT_EQ(store->section.get(), AppSection::sweep);
    EXPECT_EQ(store->selectedPile.get(), PileKind::screenshots);
    piles.open(4);
    EXPECT_EQ(store->section.get(), AppSection::duplicates);
    EXPECT_EQ(store->selectedPile.get(), PileKind::screenshots);
    piles.open(5);
    piles.open(-1);
    EXPECT_EQ(store->section.get(), AppSection::duplicates);
}

TEST_F(PilesShown, openAPileWithItsOwnTicksEveryTime) {
    setPile(PileKind::forgotten, {ticked("/a", 5), ticked("/b", 6)});
    piles.open(0);
    store->toggle(FileUrl("/a"));
    store->section.set(AppSection::home);
    piles.open(0);
    EXPECT_EQ(store->section.get(), AppSection::sweep);
    EXPECT_TRUE(store->checked.get().contains(FileUrl("/a")));
}

TEST_F(PilesShown, tellWhenTheFiguresChange) {
    QSignalSpy changed(&piles, &PilesModel::changed);
    setPile(PileKind::forgotten, {ticked("/a", 5)});
    EXPECT_EQ(changed.size(), 1);
    store->select(PileKind::forgotten);
    EXPECT_EQ(changed.size(), 1);
}

}  // namespace
}  // namespace nookwise
