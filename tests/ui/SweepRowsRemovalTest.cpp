#include "tests/ui/StoreFixture.h"
#include "ui/sweep/SweepModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace nookwise {
namespace {

class RowsThatGo : public StoreFixture {
  protected:
    RowsThatGo() { store->select(PileKind::forgotten); }

    static std::vector<SweepItem> items(std::initializer_list<int> numbers) {
        std::vector<SweepItem> all;
        for (const int number : numbers)
            all.push_back(ticked("/f" + std::to_string(number), number));
        return all;
    }

    void show(std::vector<SweepItem> all) { setPile(PileKind::forgotten, std::move(all)); }

    QStringList names() { return texts(&rows, "name"); }

    PilesModel piles{*store};
    SweepModel sweep{*store, fake.folders.home(), piles};
    QAbstractListModel& rows = *sweep.rows();
    QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy removed{&rows, &QAbstractItemModel::rowsRemoved};
    QSignalSpy reset{&rows, &QAbstractItemModel::modelReset};
};

TEST_F(RowsThatGo, areTakenOutRunByRun) {
    show(items({0, 1, 2, 3, 4, 5}));
    reset.clear();
    show(items({0, 3, 5}));
    EXPECT_EQ(names(), QStringList({"f0", "f3", "f5"}));
    EXPECT_EQ(reset.size(), 0);
    ASSERT_EQ(removed.size(), 2);
    EXPECT_EQ(removed[0][1].toInt(), 1);
    EXPECT_EQ(removed[0][2].toInt(), 2);
    EXPECT_EQ(removed[1][1].toInt(), 2);
    EXPECT_EQ(removed[1][2].toInt(), 2);
}

TEST_F(RowsThatGo, mayBeTheFirstTheLastOrAll) {
    show(items({0, 1, 2}));
    reset.clear();
    show(items({1, 2}));
    EXPECT_EQ(names(), QStringList({"f1", "f2"}));
    show(items({1}));
    EXPECT_EQ(names(), QStringList({"f1"}));
    show({});
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(removed.size(), 3);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(RowsThatGo, areReplacedWithTheRestWhenTheyAreMany) {
    std::vector<SweepItem> all;
    for (int i = 0; i < 40; ++i) all.push_back(ticked("/f" + std::to_string(i), 1));
    show(all);
    reset.clear();
    show({all[0], all[35], all[36]});
    EXPECT_EQ(names(), QStringList({"f0", "f35", "f36"}));
    EXPECT_EQ(removed.size(), 0);
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(sweep.rowAfterReplacement(0), 0);
    EXPECT_EQ(sweep.rowAfterReplacement(1), 1);
    EXPECT_EQ(sweep.rowAfterReplacement(20), 1);
    EXPECT_EQ(sweep.rowAfterReplacement(35), 1);
    EXPECT_EQ(sweep.rowAfterReplacement(36), 2);
    EXPECT_EQ(sweep.rowAfterReplacement(39), 3);
}

TEST_F(RowsThatGo, leaveOtherRowsWhereTheyAreWhenNoneWasReplaced) {
    show(items({0, 1, 2}));
    show(items({0, 2}));
    EXPECT_EQ(sweep.rowAfterReplacement(1), 1);
}

TEST_F(RowsThatGo, areReplacedWhenOthersCome) {
    show(items({0, 1, 2}));
    reset.clear();
    show(items({0, 7, 2}));
    EXPECT_EQ(names(), QStringList({"f0", "f7", "f2"}));
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(sweep.rowAfterReplacement(1), 1);
}

TEST_F(RowsThatGo, areReplacedWithThePileTheyAreOf) {
    show(items({0, 1, 2}));
    reset.clear();
    store->select(PileKind::large);
    EXPECT_EQ(rows.rowCount(), 0);
    EXPECT_EQ(removed.size(), 0);
    EXPECT_EQ(reset.size(), 1);
}

TEST_F(RowsThatGo, goTogetherWhereAFileIsListedTwice) {
    show(items({0, 1, 0, 2}));
    reset.clear();
    show(items({1, 2}));
    EXPECT_EQ(names(), QStringList({"f1", "f2"}));
    EXPECT_EQ(removed.size(), 2);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(RowsThatGo, areNoneWhenOnlyWhatIsSaidOfThemIsNew) {
    show(items({0, 1}));
    reset.clear();
    QSignalSpy changed(&rows, &QAbstractItemModel::dataChanged);
    show({ticked("/f0", 9 * megabyte), ticked("/f1", 1)});
    EXPECT_EQ(text(&rows, 0, "size"), QStringLiteral("9 MB"));
    EXPECT_GE(changed.size(), 1);
    EXPECT_EQ(removed.size(), 0);
    EXPECT_EQ(reset.size(), 0);
}

}  // namespace
}  // namespace nookwise
