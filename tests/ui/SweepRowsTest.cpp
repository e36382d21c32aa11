#include "tests/ui/StoreFixture.h"
#include "ui/sweep/SweepModel.h"
#include "ui/sweep/SweepRows.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace nookwise {
namespace {

class Rows : public StoreFixture {
  protected:
    PilesModel piles{*store};
    SweepModel sweep{*store, fake.folders.home(), piles};
    QAbstractListModel& rows = *sweep.rows();
};

TEST_F(Rows, keepTheRulesOfListModels) {
    const QAbstractItemModelTester tester(&rows,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    setPile(PileKind::forgotten, {ticked("/a", 1), unticked("/b", 2)});
    store->select(PileKind::forgotten);
    sweep.toggle(0);
    setPile(PileKind::forgotten, {});
    EXPECT_EQ(rows.rowCount(), 0);
}

TEST_F(Rows, sayWhatAFileIsAndWhyItIsThere) {
    setPile(PileKind::forgotten, {ticked("/home/user/Downloads/Reading/Glaze.pdf", 618'200'000)});
    store->select(PileKind::forgotten);
    EXPECT_EQ(text(&rows, 0, "name"), QStringLiteral("Glaze.pdf"));
    EXPECT_EQ(text(&rows, 0, "reason"), QStringLiteral("untouched since 7 mo. ago"));
    EXPECT_EQ(text(&rows, 0, "place"), QStringLiteral("~/Downloads/Reading"));
    EXPECT_EQ(text(&rows, 0, "size"), QStringLiteral("618.2 MB"));
    EXPECT_EQ(text(&rows, 0, "kindGroup"), QStringLiteral("pdf"));
    EXPECT_EQ(text(&rows, 0, "kindLabel"), QStringLiteral("PDF"));
    EXPECT_TRUE(value(&rows, 0, "ticked").toBool());
    EXPECT_EQ(text(&rows, 0, "spoken"),
              QStringLiteral("Glaze.pdf, 618.2 MB, untouched since 7 mo. ago, Downloads, Reading"));
}

TEST_F(Rows, tickTheRightFileWhenNamesLookAlike) {
    setPile(PileKind::forgotten, {unticked("/bad\xff.zip", 1), unticked("/bad\xfe.zip", 2)});
    store->select(PileKind::forgotten);
    EXPECT_EQ(text(&rows, 0, "name"), text(&rows, 1, "name"));
    sweep.toggle(1);
    const auto items = store->checkedItems();
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].file.url.path(), "/bad\xfe.zip");
}

TEST_F(Rows, answerForRowsThatAreGoneWithNothing) {
    setPile(PileKind::forgotten, {ticked("/a", 1), ticked("/b", 1)});
    store->select(PileKind::forgotten);
    const auto last = rows.index(1);
    setPile(PileKind::forgotten, {ticked("/a", 1)});
    EXPECT_FALSE(rows.data(last, rows.roleNames().key("name")).isValid());
}

TEST_F(Rows, ofAHundredThousandFilesAreTickedOneByOne) {
    constexpr int count = 100'000;
    std::vector<SweepItem> items;
    items.reserve(count);
    for (int i = 0; i < count; ++i) {
        items.push_back(
            unticked("/home/user/Downloads/file " + std::to_string(i) + ".pdf", megabyte));
    }
    setPile(PileKind::forgotten, std::move(items));
    store->select(PileKind::forgotten);
    EXPECT_EQ(rows.rowCount(), count);
    QSignalSpy changed(&rows, &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&rows, &QAbstractItemModel::modelReset);
    for (int row = 0; row < 1'000; ++row) sweep.toggle(row * 100);
    EXPECT_EQ(changed.size(), 1'000);
    EXPECT_EQ(reset.size(), 0);
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("1,000 of 100,000 ticked"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("1 GB comes back"));
}

}  // namespace
}  // namespace nookwise
