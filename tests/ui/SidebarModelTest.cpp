#include "tests/ui/StoreFixture.h"
#include "ui/window/SidebarModel.h"

#include <QFile>
#include <QSignalSpy>

namespace nookwise {
namespace {

class SectionsShown : public StoreFixture {
  protected:
    PilesModel piles{*store};
    SidebarModel sidebar{*store, piles};
};

TEST_F(SectionsShown, standInTheirOrderUnderTheirHeadings) {
    EXPECT_EQ(texts(sidebar.rows(), "label"),
              QStringList({"Home", "Ask", "Sweep", "Duplicates", "Activity", "Split view"}));
    EXPECT_EQ(texts(sidebar.rows(), "heading"),
              QStringList({"", "", "Clean up", "", "", "Folders"}));
    EXPECT_EQ(texts(sidebar.rows(), "shortcut"),
              QStringList({"Ctrl+1", "Ctrl+F", "Ctrl+3", "Ctrl+4", "Ctrl+5", "Ctrl+\\"}));
    for (const auto& glyph : texts(sidebar.rows(), "glyph")) {
        EXPECT_TRUE(QFile::exists(":/Nookwise/assets/icons/" + glyph + ".svg"));
    }
}

TEST_F(SectionsShown, haveNoCountsWhileThereIsNothingToCount) {
    EXPECT_EQ(texts(sidebar.rows(), "count"), QStringList({"", "", "", "", "", ""}));
}

TEST_F(SectionsShown, countBytesToSweepAndCopies) {
    setPile(PileKind::forgotten, {ticked("/a", 1'000 * megabyte)});
    store->duplicates.set({copies({"/x", "/y"}, 500 * megabyte)});
    EXPECT_EQ(texts(sidebar.rows(), "count"), QStringList({"", "", "1.5 GB", "1", "", ""}));
}

TEST_F(SectionsShown, openByKeyAndByRow) {
    QSignalSpy changed(&sidebar, &SidebarModel::sectionChanged);
    sidebar.open("sweep");
    EXPECT_EQ(store->section.get(), AppSection::sweep);
    EXPECT_EQ(sidebar.section(), QStringLiteral("sweep"));
    EXPECT_EQ(texts(sidebar.rows(), "current"),
              QStringList({"false", "false", "true", "false", "false", "false"}));
    sidebar.openRow(3);
    EXPECT_EQ(sidebar.section(), QStringLiteral("duplicates"));
    sidebar.open("activity");
    EXPECT_EQ(store->section.get(), AppSection::activity);
    EXPECT_EQ(changed.size(), 3);
}

TEST_F(SectionsShown, stayWhenThereIsNoSuchSection) {
    sidebar.open("nowhere");
    sidebar.openRow(-1);
    sidebar.openRow(6);
    EXPECT_EQ(store->section.get(), AppSection::home);
}

}  // namespace
}  // namespace nookwise
