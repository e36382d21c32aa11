#include "tests/ui/StoreFixture.h"
#include "ui/trash/BusyModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class BusyShown : public StoreFixture {
  protected:
    BusyModel busy{*store};
};

TEST_F(BusyShown, isIdleAtFirst) {
    EXPECT_FALSE(busy.busy());
    EXPECT_EQ(busy.countText(), QString());
    EXPECT_EQ(busy.fraction(), 0.0);
}

TEST_F(BusyShown, saysHowFarTheWorkIs) {
    QSignalSpy changed(&busy, &BusyModel::changed);
    store->busy.set(Busy{1'203, 4'812});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(busy.busy());
    EXPECT_EQ(busy.countText(), QStringLiteral("1,203 of 4,812"));
    EXPECT_DOUBLE_EQ(busy.fraction(), 0.25);
    store->busy.set(std::nullopt);
    EXPECT_FALSE(busy.busy());
}

TEST_F(BusyShown, isNowhereWithNothingToDo) {
    store->busy.set(Busy{0, 0});
    EXPECT_EQ(busy.fraction(), 0.0);
    EXPECT_EQ(busy.countText(), QStringLiteral("0 of 0"));
}

}  // namespace
}  // namespace nookwise
