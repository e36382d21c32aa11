#include "tests/ui/SplitFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace nookwise {
namespace {

class PaneRowsOfAFolder : public SplitFixture {
  protected:
    QAbstractListModel& rows = *left->rows();
};

TEST_F(PaneRowsOfAFolder, keepTheRulesOfListModels) {
    const QAbstractItemModelTester tester(&rows,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    choose(left, "lighting.json");
    choose(left, "workshop.zip", Qt::ControlModifier);
    split.moveSelected();
    run();
    open(left, "Fernhill");
    left->goUp();
    run();
    EXPECT_EQ(names(left), (QStringList{"Fernhill", "Invoice 2207.pdf"}));
}

TEST_F(PaneRowsOfAFolder, sayWhatIsInTheFolder) {
    EXPECT_EQ(names(left),
              (QStringList{"Fernhill", "Invoice 2207.pdf", "lighting.json", "workshop.zip"}));
    EXPECT_TRUE(value(&rows, 0, "folder").toBool());
    EXPECT_EQ(text(&rows, 0, "size"), QString());
    EXPECT_EQ(text(&rows, 0, "spoken"), QStringLiteral("Fernhill, folder, 4 hr. ago"));
    EXPECT_FALSE(value(&rows, 1, "folder").toBool());
    EXPECT_EQ(text(&rows, 1, "size"), QStringLiteral("2 MB"));
    EXPECT_EQ(text(&rows, 1, "age"), QStringLiteral("1 day ago"));
    EXPECT_EQ(text(&rows, 1, "kindGroup"), QStringLiteral("pdf"));
    EXPECT_EQ(text(&rows, 1, "kindLabel"), QStringLiteral("PDF"));
    EXPECT_EQ(text(&rows, 1, "spoken"), QStringLiteral("Invoice 2207.pdf, 2 MB, 1 day ago"));
}

TEST_F(PaneRowsOfAFolder, sayNothingOfADateThatIsNotKnown) {
    fake.files.addFile("/home/user/Downloads/Fernhill/undated.txt", {.size = megabyte});
    open(left, "Fernhill");
    const int row = rowOf(left, "undated.txt");
    EXPECT_EQ(text(&rows, row, "spoken"), QStringLiteral("undated.txt, 1 MB"));
    EXPECT_EQ(text(&rows, row, "age"), QStringLiteral("—"));
}

TEST_F(PaneRowsOfAFolder, drawNamesThatCannotBeDrawnOnOneLine) {
    add("/home/user/Downloads/bad\xff\nname.zip", 1, 0);
    split.show();
    run();
    EXPECT_EQ(names(left)[1], QStringLiteral("bad\uFFFD\uFFFDname.zip"));
}

TEST_F(PaneRowsOfAFolder, stayWhereOthersComeAndGo) {
    QSignalSpy reset(&rows, &QAbstractItemModel::modelReset);
    QSignalSpy removed(&rows, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&rows, &QAbstractItemModel::rowsInserted);
    fake.files.remove("/home/user/Downloads/lighting.json");
    split.show();
    run();
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 2);
    EXPECT_EQ(removed[0][2].toInt(), 2);
    add("/home/user/Downloads/new.zip", 1, 0);
    split.show();
    run();
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 1);
    EXPECT_TRUE(reset.isEmpty());
}

TEST_F(PaneRowsOfAFolder, areTheRightOnesInTheMidstOfAChange) {
    std::vector<QStringList> seen;
    QObject::connect(&rows, &QAbstractItemModel::rowsRemoved, [&] { seen.push_back(names(left)); });
    fake.files.remove("/home/user/Downloads/Invoice 2207.pdf");
    add("/home/user/Downloads/new.zip", 1, 0);
    split.show();
    run();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0], (QStringList{"Fernhill", "lighting.json", "workshop.zip"}));
}

TEST_F(PaneRowsOfAFolder, stayBetweenFilesThatGoInSeveralPlaces) {
    QSignalSpy removed(&rows, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&rows, &QAbstractItemModel::rowsInserted);
    fake.files.remove("/home/user/Downloads/Invoice 2207.pdf");
    fake.files.remove("/home/user/Downloads/workshop.zip");
    add("/home/user/Downloads/between.zip", 1, 1.5);
    split.show();
    run();
    EXPECT_EQ(names(left), (QStringList{"Fernhill", "between.zip", "lighting.json"}));
    ASSERT_EQ(removed.size(), 2);
    EXPECT_EQ(removed[0][1].toInt(), 3);
    EXPECT_EQ(removed[1][1].toInt(), 1);
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 1);
}

TEST_F(PaneRowsOfAFolder, areRightAfterFilesChangedPlaces) {
    const QAbstractItemModelTester tester(&rows,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    add("/home/user/Downloads/workshop.zip", 40, 0.5);
    split.show();
    run();
    EXPECT_EQ(names(left),
              (QStringList{"Fernhill", "workshop.zip", "Invoice 2207.pdf", "lighting.json"}));
    for (int i = 0; i < 200; ++i)
        add("/home/user/Downloads/" + std::to_string(i), 1, 0.1 + i * 0.05);
    split.show();
    run();
    for (int i = 0; i < 200; i += 2) fake.files.remove("/home/user/Downloads/" + std::to_string(i));
    split.show();
    run();
    EXPECT_EQ(names(left).size(), 104);
    EXPECT_EQ(names(left)[1], QStringLiteral("1"));
}

TEST_F(PaneRowsOfAFolder, areReplacedWhenAnotherFolderIsListed) {
    QSignalSpy reset(&rows, &QAbstractItemModel::modelReset);
    open(left, "Fernhill");
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(names(left), QStringList{"plan.pdf"});
}

TEST_F(PaneRowsOfAFolder, tellAgesAsOfTheLastListing) {
    QSignalSpy changed(&rows, &QAbstractItemModel::dataChanged);
    fake.clock.set(fake.clock.now() + Seconds(86'400));
    EXPECT_EQ(text(&rows, 1, "age"), QStringLiteral("1 day ago"));
    split.show();
    run();
    EXPECT_EQ(text(&rows, 1, "age"), QStringLiteral("2 days ago"));
    EXPECT_EQ(text(&rows, 1, "spoken"), QStringLiteral("Invoice 2207.pdf, 2 MB, 2 days ago"));
    ASSERT_EQ(changed.size(), 1) << "of the rows as a whole";
    EXPECT_EQ(changed[0][2].value<QList<int>>().size(), 2);
}

TEST_F(PaneRowsOfAFolder, areLeftAloneByAListingThatSaysTheSame) {
    QSignalSpy changed(&rows, &QAbstractItemModel::dataChanged);
    split.show();
    run();
    EXPECT_TRUE(changed.isEmpty());
}

TEST_F(PaneRowsOfAFolder, ofAHundredThousandFilesChangeAtLittlePrice) {
    constexpr int count = 100'000;
    for (int i = 0; i < count; ++i)
        add("/home/user/Downloads/Fernhill/file " + std::to_string(i), 1, i / 1000.0);
    open(left, "Fernhill");
    EXPECT_EQ(rows.rowCount(), count + 1);
    left->selectAll();
    EXPECT_EQ(left->status(), QStringLiteral("100,001 items · 100,001 selected · 100 GB"));
    QSignalSpy changed(&rows, &QAbstractItemModel::dataChanged);
    choose(left, "file 500");
    choose(left, "file 99000", Qt::ShiftModifier);
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(left->selectedCount(), 98'502);
    QSignalSpy removed(&rows, &QAbstractItemModel::rowsRemoved);
    fake.files.remove("/home/user/Downloads/Fernhill/file 50000");
    split.show();
    run();
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0][1].toInt(), removed[0][2].toInt());
    EXPECT_EQ(left->selectedCount(), 98'501);
}

}  // namespace
}  // namespace nookwise
