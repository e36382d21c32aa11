#include "tests/ui/StoreFixture.h"
#include "ui/sweep/SweepModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class SweepShown : public StoreFixture {
  protected:
    SweepShown() {
        setPile(PileKind::forgotten, {ticked("/home/user/Downloads/a.zip", 600 * megabyte),
                                      ticked("/home/user/Downloads/b.mov", 300 * megabyte),
                                      unticked("/home/user/Downloads/c.pdf", 100 * megabyte)});
        store->select(PileKind::forgotten);
    }

    PilesModel piles{*store};
    SweepModel sweep{*store, fake.folders.home(), piles};
};

TEST_F(SweepShown, saysWhatThePileIs) {
    EXPECT_EQ(sweep.pile(), QStringLiteral("forgotten"));
    EXPECT_EQ(sweep.title(), QStringLiteral("Forgotten downloads"));
    EXPECT_EQ(sweep.subtitle(),
              QStringLiteral("Files in Downloads you haven’t opened in 90+ days"));
    EXPECT_EQ(sweep.totalText(), QStringLiteral("1 GB"));
    EXPECT_EQ(sweep.countText(), QStringLiteral("3 files"));
}

TEST_F(SweepShown, sumsWhatIsTicked) {
    EXPECT_EQ(sweep.tickState(), Qt::PartiallyChecked);
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("2 of 3 ticked"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("900 MB comes back"));
    EXPECT_EQ(sweep.staysText(), QStringLiteral("1 file stays where it is"));
}

TEST_F(SweepShown, followsATick) {
    sweep.toggle(1);
    EXPECT_FALSE(store->checked.get().contains(FileUrl("/home/user/Downloads/b.mov")));
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("1 of 3 ticked"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("600 MB comes back"));
    EXPECT_EQ(sweep.staysText(), QStringLiteral("2 files stay where they are"));
    sweep.toggle(2);
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("700 MB comes back"));
    EXPECT_TRUE(value(sweep.rows(), 2, "ticked").toBool());
}

TEST_F(SweepShown, updatesOneRowForOneTick) {
    QSignalSpy changed(sweep.rows(), &QAbstractItemModel::dataChanged);
    QSignalSpy reset(sweep.rows(), &QAbstractItemModel::modelReset);
    sweep.toggle(1);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 1);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(SweepShown, ignoresRowsThatAreNotThere) {
    sweep.toggle(-1);
    sweep.toggle(3);
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("2 of 3 ticked"));
}

TEST_F(SweepShown, ticksAllAndNone) {
    sweep.selectAll();
    EXPECT_EQ(sweep.tickState(), Qt::Checked);
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("1 GB comes back"));
    EXPECT_EQ(sweep.staysText(), QString());
    sweep.selectNone();
    EXPECT_EQ(sweep.tickState(), Qt::Unchecked);
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("0 of 3 ticked"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("Nothing ticked"));
    EXPECT_EQ(sweep.staysText(), QStringLiteral("3 files stay where they are"));
    EXPECT_TRUE(store->checkedItems().empty());
}

TEST_F(SweepShown, followsTicksThatOthersSet) {
    QSignalSpy changed(&sweep, &SweepModel::ticksChanged);
    store->toggle(FileUrl("/home/user/Downloads/a.zip"));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("300 MB comes back"));
}

TEST_F(SweepShown, sharesTheTickOfAFileThatIsListedTwice) {
    setPile(PileKind::screenshots, {ticked("/s.png", 10 * megabyte), ticked("/t.png", megabyte),
                                    ticked("/s.png", 10 * megabyte)});
    store->select(PileKind::screenshots);
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("21 MB comes back"));
    QSignalSpy changed(sweep.rows(), &QAbstractItemModel::dataChanged);
    sweep.toggle(2);
    EXPECT_EQ(changed.size(), 2);
    EXPECT_FALSE(value(sweep.rows(), 0, "ticked").toBool());
    EXPECT_FALSE(value(sweep.rows(), 2, "ticked").toBool());
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("1 of 3 ticked"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("1 MB comes back"));
    sweep.toggle(0);
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("3 of 3 ticked"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("21 MB comes back"));
}

TEST_F(SweepShown, showsThePileThatIsSelected) {
    setPile(PileKind::large, {unticked("/big.iso", 1'200 * megabyte)});
    store->select(PileKind::large);
    EXPECT_EQ(sweep.title(), QStringLiteral("Large files"));
    EXPECT_EQ(texts(sweep.rows(), "name"), QStringList{"big.iso"});
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("Nothing ticked"));
}

TEST_F(SweepShown, leavesRowsAloneWhileThePileStaysEqual) {
    QSignalSpy reset(sweep.rows(), &QAbstractItemModel::modelReset);
    store->piles.set(Piles(store->piles.get()));
    store->section.set(AppSection::home);
    store->resetChecks();
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(SweepShown, cutsTheStripFromTheLargestFiles) {
    std::vector<SweepItem> items;
    for (int i = 0; i < 12; ++i) {
        items.push_back(ticked("/home/user/f" + std::to_string(i) + ".zip", (i + 1) * megabyte));
    }
    setPile(PileKind::forgotten, std::move(items));
    EXPECT_EQ(sweep.strip()->rowCount(), 9);
    EXPECT_EQ(texts(sweep.strip(), "row"),
              QStringList({"11", "10", "9", "8", "7", "6", "5", "4", "3"}));
    EXPECT_EQ(text(sweep.strip(), 0, "name"), QStringLiteral("f11"));
    EXPECT_EQ(sweep.stripRestText(), QStringLiteral("+3"));
    EXPECT_DOUBLE_EQ(sweep.stripShare(), 72.0 / 78.0);
    EXPECT_DOUBLE_EQ(value(sweep.strip(), 0, "from").toDouble(), 0.0);
    EXPECT_DOUBLE_EQ(value(sweep.strip(), 0, "to").toDouble(), 12.0 / 72.0);
    EXPECT_DOUBLE_EQ(value(sweep.strip(), 8, "to").toDouble(), 1.0);
}

TEST_F(SweepShown, marksTheStripAsItIsTicked) {
    sweep.toggle(0);
    EXPECT_EQ(texts(sweep.strip(), "ticked"), QStringList({"false", "true", "false"}));
    EXPECT_EQ(sweep.stripRestText(), QString());
    EXPECT_EQ(sweep.spokenStrip(), QStringLiteral("a 600 MB, b 300 MB, c 100 MB"));
}

TEST_F(SweepShown, ofAnEmptyPileLeadsToTheLargest) {
    store->duplicates.set({copies({"/x", "/y"}, 2'000 * megabyte)});
    store->select(PileKind::installers);
    EXPECT_TRUE(sweep.empty());
    EXPECT_EQ(sweep.emptyText(),
              QStringLiteral("No installers to clean right now. We’ll check again "
                             "next time you open Nookwise."));
    EXPECT_EQ(sweep.largestText(), QStringLiteral("Duplicates · 2 GB"));
    sweep.openLargest();
    EXPECT_EQ(store->section.get(), AppSection::duplicates);
}

TEST_F(SweepShown, leadsNowhereWhenEveryPileIsEmpty) {
    store->piles.set({});
    EXPECT_EQ(sweep.largestText(), QString());
    sweep.openLargest();
    EXPECT_TRUE(sweep.empty());
    EXPECT_EQ(sweep.tickState(), Qt::Unchecked);
}

TEST_F(SweepShown, namesTheContentsOfEachPile) {
    const std::pair<PileKind, const char*> cases[] = {{PileKind::forgotten, "No downloads "},
                                                      {PileKind::installers, "No installers "},
                                                      {PileKind::screenshots, "No screenshots "},
                                                      {PileKind::large, "No large files "}};
    for (const auto& [kind, start] : cases) {
        store->select(kind);
        EXPECT_TRUE(sweep.emptyText().startsWith(start)) << start;
    }
}

}  // namespace
}  // namespace nookwise
