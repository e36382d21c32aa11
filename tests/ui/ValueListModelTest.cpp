#include "tests/ui/StoreFixture.h"
#include "ui/bridge/ValueListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace nookwise {
namespace {

class ShortList : public testing::Test {
  protected:
    ValueListModel<int> list{{{"number", [](const int& row) { return row; }},
                              {"doubled", [](const int& row) { return 2 * row; }}}};
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ShortList, answersByRole) {
    list.setRows({3, 4});
    EXPECT_EQ(texts(&list, "number"), QStringList({"3", "4"}));
    EXPECT_EQ(texts(&list, "doubled"), QStringList({"6", "8"}));
    EXPECT_FALSE(list.data(list.index(0), Qt::DisplayRole).isValid());
    EXPECT_FALSE(list.data(list.index(7), Qt::UserRole).isValid());
}

TEST_F(ShortList, tellsOnlyOfRowsThatChanged) {
    list.setRows({1, 2, 3});
    QSignalSpy changed(&list, &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&list, &QAbstractItemModel::modelReset);
    list.setRows({1, 5, 3});
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(reset.size(), 0);
    list.setRows({1});
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(list.rowCount(), 1);
}

}  // namespace
}  // namespace nookwise
