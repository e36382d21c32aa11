#include "tests/ui/StoreFixture.h"
#include "ui/bridge/DiskModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class DiskShown : public StoreFixture {
  protected:
    PilesModel piles{*store};
    DiskModel disk{*store, piles};
};

TEST_F(DiskShown, isUnknownWithoutFigures) {
    store->totalBytes.set(0);
    EXPECT_FALSE(disk.known());
    EXPECT_DOUBLE_EQ(disk.restFraction(), 0.0);
    EXPECT_DOUBLE_EQ(disk.comesBackFraction(), 0.0);
}

TEST_F(DiskShown, dividesIntoThreeParts) {
    store->totalBytes.set(400 * megabyte);
    store->freeBytes.set(100 * megabyte);
    setPile(PileKind::forgotten, {ticked("/a", 60 * megabyte)});
    EXPECT_TRUE(disk.known());
    EXPECT_EQ(disk.freeText(), QStringLiteral("100 MB"));
    EXPECT_EQ(disk.totalText(), QStringLiteral("400 MB"));
    EXPECT_EQ(disk.restText(), QStringLiteral("240 MB"));
    EXPECT_EQ(disk.comesBackText(), QStringLiteral("60 MB"));
    EXPECT_DOUBLE_EQ(disk.restFraction(), 0.6);
    EXPECT_DOUBLE_EQ(disk.comesBackFraction(), 0.15);
}

TEST_F(DiskShown, neverGivesBackMoreThanIsUsed) {
    store->totalBytes.set(400 * megabyte);
    store->freeBytes.set(390 * megabyte);
    setPile(PileKind::forgotten, {ticked("/a", 60 * megabyte)});
    EXPECT_DOUBLE_EQ(disk.restFraction(), 0.0);
    EXPECT_DOUBLE_EQ(disk.comesBackFraction(), 0.025);
    EXPECT_EQ(disk.comesBackText(), QStringLiteral("60 MB"));
}

TEST_F(DiskShown, withMoreFreeThanThereIsUsesNothing) {
    store->totalBytes.set(100 * megabyte);
    store->freeBytes.set(120 * megabyte);
    EXPECT_DOUBLE_EQ(disk.restFraction(), 0.0);
    EXPECT_EQ(disk.restText(), QStringLiteral("Zero KB"));
}

TEST_F(DiskShown, followsTheDiskAndThePiles) {
    QSignalSpy changed(&disk, &DiskModel::changed);
    store->totalBytes.set(7);
    store->freeBytes.set(5);
    EXPECT_EQ(changed.size(), 2);
    setPile(PileKind::forgotten, {ticked("/a", 1)});
    EXPECT_EQ(changed.size(), 3);
}

}  // namespace
}  // namespace nookwise
