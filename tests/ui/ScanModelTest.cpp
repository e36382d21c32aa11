#include "tests/ui/StoreFixture.h"
#include "ui/bridge/ScanModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class ScanShown : public StoreFixture {
  protected:
    void report(const std::string& folder, int files, double fraction, const std::string& step) {
        store->progress.set({folder, files, fraction, step});
    }

    QString stages() { return texts(scan.steps(), "stage").join(' '); }
    QString captions() { return texts(scan.steps(), "caption").join('|'); }

    ScanModel scan{*store};
};

TEST_F(ScanShown, startsByItselfOnlyWhenNothingWasScanned) {
    scan.startFirstScan();
    EXPECT_EQ(store->phase.get(), AppStore::Phase::scanning);
    fake.tasks.runEverything();
    EXPECT_EQ(store->phase.get(), AppStore::Phase::ready);
    scan.startFirstScan();
    EXPECT_EQ(store->phase.get(), AppStore::Phase::ready);
    scan.scanAgain();
    EXPECT_EQ(store->phase.get(), AppStore::Phase::scanning);
}

TEST_F(ScanShown, isTheFirstUntilAResultIsThere) {
    EXPECT_TRUE(scan.first());
    EXPECT_TRUE(scan.scanning());
    scan.startFirstScan();
    fake.tasks.runEverything();
    EXPECT_FALSE(scan.first());
    EXPECT_FALSE(scan.scanning());
    scan.scanAgain();
    EXPECT_FALSE(scan.first());
    EXPECT_TRUE(scan.scanning());
}

TEST_F(ScanShown, beginsWithTheDesktop) {
    scan.startFirstScan();
    EXPECT_EQ(stages(), QStringLiteral("now waiting waiting waiting waiting"));
    EXPECT_EQ(captions(), QStringLiteral("Starting|Waiting|Waiting|Waiting|Waiting"));
}

TEST_F(ScanShown, countsTheFilesOfEachFolderThatWasRead) {
    report("Desktop", 1126, 0.25, "Reading Desktop");
    report("Documents", 4812, 0.4, "Reading Documents");
    EXPECT_EQ(scan.filesText(), QStringLiteral("4,812 files"));
    EXPECT_EQ(stages(), QStringLiteral("done now waiting waiting waiting"));
    EXPECT_EQ(captions(), QStringLiteral("1,126 files|Reading Documents|Waiting|Waiting|Waiting"));
    EXPECT_DOUBLE_EQ(value(scan.steps(), 0, "fill").toDouble(), 1.0);
    EXPECT_DOUBLE_EQ(value(scan.steps(), 1, "fill").toDouble(), 0.6);
    EXPECT_DOUBLE_EQ(value(scan.steps(), 2, "fill").toDouble(), 0.0);
    report("Downloads", 5000, 0.75, "Reading Downloads");
    EXPECT_EQ(captions(),
              QStringLiteral("1,126 files|3,686 files|Reading Downloads|Waiting|Waiting"));
}

TEST_F(ScanShown, goesOnAfterTheFolders) {
    report("Downloads", 700, 0.75, "Reading Downloads");
    report("", 700, 0.8, "Checking when files were last opened");
    EXPECT_EQ(stages(), QStringLiteral("done done done now waiting"));
    report("", 700, 0.88, "Looking for copies");
    EXPECT_EQ(stages(), QStringLiteral("done done done done now"));
    EXPECT_EQ(text(scan.steps(), 4, "caption"), QStringLiteral("Looking for copies"));
    EXPECT_EQ(scan.step(), QStringLiteral("Looking for copies"));
    report("", 700, 1.0, "Done");
    EXPECT_DOUBLE_EQ(value(scan.steps(), 4, "fill").toDouble(), 1.0);
}

TEST_F(ScanShown, startsCountingAnewWithTheNextScan) {
    report("Desktop", 900, 0.25, "Reading Desktop");
    report("Downloads", 2000, 0.7, "Reading Downloads");
    scan.scanAgain();
    report("Desktop", 10, 0.25, "Reading Desktop");
    report("Documents", 15, 0.3, "Reading Documents");
    EXPECT_EQ(text(scan.steps(), 0, "caption"), QStringLiteral("10 files"));
}

TEST_F(ScanShown, tellsOfEachReport) {
    QSignalSpy changed(&scan, &ScanModel::changed);
    report("Desktop", 400, 0.005, "Reading Desktop");
    EXPECT_EQ(changed.size(), 1);
    report("Desktop", 400, 0.005, "Reading Desktop");
    EXPECT_EQ(changed.size(), 1);
}

}  // namespace
}  // namespace nookwise
