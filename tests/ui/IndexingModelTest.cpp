#include "tests/ui/StoreFixture.h"
#include "ui/bridge/IndexingModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class IndexingShown : public StoreFixture {
  protected:
    IndexingModel model{*store};
};

TEST_F(IndexingShown, isNotRunningUntilItReports) {
    EXPECT_FALSE(model.running());
    EXPECT_EQ(model.text(), QString());
    EXPECT_DOUBLE_EQ(model.fraction(), 0.0);
}

TEST_F(IndexingShown, tellsHowFarItHasCome) {
    QSignalSpy changed(&model, &IndexingModel::changed);
    store->indexing.set(AppStore::Indexing{1'240, 3'100});
    EXPECT_TRUE(model.running());
    EXPECT_EQ(model.text(), QStringLiteral("Reading text in images and PDFs · 1,240 of 3,100"));
    EXPECT_DOUBLE_EQ(model.fraction(), 0.4);
    store->indexing.set(std::nullopt);
    EXPECT_FALSE(model.running());
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(IndexingShown, hasNoFractionOfNothing) {
    store->indexing.set(AppStore::Indexing{0, 0});
    EXPECT_DOUBLE_EQ(model.fraction(), 0.0);
}

}  // namespace
}  // namespace nookwise
