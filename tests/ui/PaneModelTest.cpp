#include "tests/ui/SplitFixture.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

using Step = PaneModel::Step;

class OnePane : public SplitFixture {
  protected:
    QString current() { return text(left->rows(), left->currentRow(), "name"); }

    void step(Step step, uint modifiers = Qt::NoModifier) { left->step(step, modifiers, 2); }
};

TEST_F(OnePane, saysWhichFolderItShows) {
    EXPECT_EQ(left->name(), QStringLiteral("Downloads"));
    EXPECT_EQ(left->place(), QStringLiteral("~/Downloads"));
    EXPECT_EQ(left->art(), QStringLiteral("downloads"));
    EXPECT_EQ(left->spoken(), QStringLiteral("Left side, Downloads, active"));
    EXPECT_EQ(right->spoken(), QStringLiteral("Right side, Documents"));
    open(left, "Fernhill");
    EXPECT_EQ(left->place(), QStringLiteral("~/Downloads/Fernhill"));
    EXPECT_EQ(left->art(), QStringLiteral("folder"));
}

TEST_F(OnePane, countsItsItemsAndWhatIsSelected) {
    EXPECT_EQ(left->status(), QStringLiteral("4 items"));
    choose(left, "Invoice 2207.pdf");
    choose(left, "lighting.json", Qt::ControlModifier);
    EXPECT_EQ(left->status(), QStringLiteral("4 items · 2 selected · 5 MB"));
}

TEST_F(OnePane, givesNoSizeOfFoldersAlone) {
    choose(left, "Fernhill");
    EXPECT_EQ(left->status(), QStringLiteral("4 items · 1 selected"));
}

TEST_F(OnePane, offersNoWayUpAtHome) {
    EXPECT_TRUE(left->canGoUp());
    left->goUp();
    run();
    EXPECT_EQ(left->place(), QStringLiteral("~"));
    EXPECT_FALSE(left->canGoUp());
    left->goUp();
    run();
    EXPECT_EQ(left->place(), QStringLiteral("~"));
}

TEST_F(OnePane, goesUpToTheFolderThatItLeft) {
    open(left, "Fernhill");
    EXPECT_EQ(left->currentRow(), -1);
    left->goUp();
    run();
    EXPECT_EQ(current(), QStringLiteral("Fernhill"));
    EXPECT_EQ(selected(left), QStringList{"Fernhill"});
}

TEST_F(OnePane, forgetsTheFolderThatItLeftWhereItDoesNotGoUp) {
    open(left, "Fernhill");
    split.swapSides();
    run();
    EXPECT_TRUE(selected(left).isEmpty());
    EXPECT_TRUE(selected(right).isEmpty());
}

TEST_F(OnePane, opensFilesWithTheirPrograms) {
    left->open(rowOf(left, "lighting.json"));
    ASSERT_EQ(fake.workspace.opened.size(), 1U);
    EXPECT_EQ(fake.workspace.opened[0].path(), "/home/user/Downloads/lighting.json");
    EXPECT_EQ(left->name(), QStringLiteral("Downloads"));
    left->open(-1);
    left->open(99);
    EXPECT_EQ(fake.workspace.opened.size(), 1U);
}

TEST_F(OnePane, saysThatItReadsOnlyWhenThatTakesLong) {
    QSignalSpy shown(left, &PaneModel::readingChanged);
    split.show();
    fake.tasks.advance(std::chrono::milliseconds(199));
    EXPECT_FALSE(left->reading());
    run();
    fake.tasks.advance(std::chrono::milliseconds(500));
    EXPECT_TRUE(shown.isEmpty());
    split.show();
    fake.tasks.advance(std::chrono::milliseconds(200));
    EXPECT_TRUE(left->reading());
    EXPECT_EQ(names(left).size(), 4);
    run();
    EXPECT_FALSE(left->reading());
}

TEST_F(OnePane, isEmptyOnlyOnceItsFolderHasBeenRead) {
    fake.files.addFolder("/home/user/Downloads/Fernhill/hollow");
    open(left, "Fernhill");
    left->open(rowOf(left, "hollow"));
    EXPECT_FALSE(left->empty());
    run();
    EXPECT_TRUE(left->empty());
    EXPECT_EQ(left->status(), QStringLiteral("0 items"));
}

TEST_F(OnePane, isEmptyWhereItsFolderCannotBeRead) {
    fake.files.makeUnreadable("/home/user/Downloads/Fernhill");
    open(left, "Fernhill");
    EXPECT_TRUE(left->empty());
}

TEST_F(OnePane, goesFromOneEmptyFolderToAnother) {
    fake.files.addFolder("/home/user/Downloads/Fernhill/a");
    fake.files.addFolder("/home/user/Downloads/Fernhill/a/b");
    fake.files.remove("/home/user/Downloads/Fernhill/plan.pdf");
    open(left, "Fernhill");
    open(left, "a");
    QSignalSpy shown(left, &PaneModel::shownAnew);
    open(left, "b");
    EXPECT_TRUE(left->empty());
    EXPECT_EQ(shown.size(), 1);
    left->goUp();
    run();
    EXPECT_EQ(current(), QStringLiteral("b"));
}

TEST_F(OnePane, takesNoRowsOfAnotherFolderFromTheOtherSide) {
    left->open(rowOf(left, "Fernhill"));
    EXPECT_EQ(left->status(), QString()) << "it is not known yet how many there are";
    split.swapSides();
    EXPECT_EQ(right->name(), QStringLiteral("Fernhill"));
    EXPECT_EQ(names(right).size(), 4);
    EXPECT_EQ(right->status(), QString());
    EXPECT_EQ(left->status(), QStringLiteral("2 items"));
    right->press(1, Qt::NoModifier);
    right->selectAll();
    EXPECT_EQ(right->selectedCount(), 0);
    EXPECT_FALSE(right->isFolder(0));
    run();
    EXPECT_EQ(names(right), QStringList{"plan.pdf"});
    EXPECT_EQ(right->status(), QStringLiteral("1 items"));
}

TEST_F(OnePane, takesNoSelectionAmongTheRowsOfTheFolderBefore) {
    left->open(rowOf(left, "Fernhill"));
    EXPECT_EQ(names(left).size(), 4);
    left->press(1, Qt::NoModifier);
    left->selectAll();
    step(Step::Next);
    EXPECT_EQ(left->selectedCount(), 0);
    EXPECT_EQ(left->currentRow(), -1);
    EXPECT_FALSE(left->beginDrag(1));
    left->open(1);
    EXPECT_TRUE(fake.workspace.opened.empty());
    run();
    step(Step::Next);
    EXPECT_EQ(selected(left), QStringList{"plan.pdf"});
}

TEST_F(OnePane, selectsByThePointer) {
    choose(left, "Invoice 2207.pdf");
    EXPECT_EQ(selected(left), QStringList{"Invoice 2207.pdf"});
    choose(left, "workshop.zip", Qt::ShiftModifier);
    EXPECT_EQ(selected(left), (QStringList{"Invoice 2207.pdf", "lighting.json", "workshop.zip"}));
    choose(left, "lighting.json", Qt::ControlModifier);
    EXPECT_EQ(selected(left), (QStringList{"Invoice 2207.pdf", "workshop.zip"}));
    choose(left, "Fernhill", Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selected(left).size(), 4);
    left->press(-1, Qt::ControlModifier);
    EXPECT_EQ(selected(left).size(), 4);
    left->press(-1, Qt::NoModifier);
    EXPECT_TRUE(selected(left).isEmpty());
}

TEST_F(OnePane, keepsWhatIsSelectedWhileAPressMayBecomeADrag) {
    left->selectAll();
    left->press(1, Qt::NoModifier);
    EXPECT_EQ(selected(left).size(), 4);
    EXPECT_TRUE(left->beginDrag(1));
    EXPECT_EQ(left->dragName(), QStringLiteral("Invoice 2207.pdf"));
    EXPECT_EQ(left->dragGroup(), QStringLiteral("pdf"));
    EXPECT_FALSE(left->dragsFolder());
    left->release();
    EXPECT_EQ(selected(left).size(), 4);
    left->press(1, Qt::NoModifier);
    left->release();
    EXPECT_EQ(selected(left), QStringList{"Invoice 2207.pdf"});
}

TEST_F(OnePane, takesAFileOutOfTheSelectionWhenItIsNotDragged) {
    left->selectAll();
    left->press(1, Qt::ControlModifier);
    EXPECT_EQ(selected(left).size(), 4);
    left->release();
    EXPECT_EQ(selected(left).size(), 3);
}

TEST_F(OnePane, losesAPressedFileThatGoesMeanwhile) {
    left->selectAll();
    left->press(1, Qt::NoModifier);
    fake.files.remove("/home/user/Downloads/Invoice 2207.pdf");
    split.show();
    run();
    left->release();
    EXPECT_EQ(selected(left), (QStringList{"Fernhill", "lighting.json", "workshop.zip"}));
}

TEST_F(OnePane, selectsForAMenuWhatIsNotSelected) {
    choose(left, "Invoice 2207.pdf");
    choose(left, "lighting.json", Qt::ControlModifier);
    left->pressForMenu(rowOf(left, "lighting.json"));
    EXPECT_EQ(selected(left).size(), 2);
    left->pressForMenu(rowOf(left, "workshop.zip"));
    EXPECT_EQ(selected(left), QStringList{"workshop.zip"});
    left->pressForMenu(-1);
    EXPECT_TRUE(selected(left).isEmpty());
}

TEST_F(OnePane, selectsByTheKeyboard) {
    step(Step::Next);
    EXPECT_EQ(selected(left), QStringList{"Fernhill"});
    step(Step::Next, Qt::ShiftModifier);
    EXPECT_EQ(selected(left), (QStringList{"Fernhill", "Invoice 2207.pdf"}));
    step(Step::Last, Qt::ControlModifier);
    EXPECT_EQ(current(), QStringLiteral("workshop.zip"));
    EXPECT_EQ(selected(left).size(), 2);
    left->toggleCurrent();
    EXPECT_EQ(selected(left).size(), 3);
    step(Step::First);
    EXPECT_EQ(selected(left), QStringList{"Fernhill"});
    step(Step::PageDown);
    EXPECT_EQ(selected(left), QStringList{"lighting.json"});
    step(Step::PageUp);
    EXPECT_EQ(selected(left), QStringList{"Fernhill"});
    step(Step::Previous);
    EXPECT_EQ(selected(left), QStringList{"Fernhill"});
    left->selectAll();
    EXPECT_EQ(left->selectedCount(), 4);
    left->selectNone();
    EXPECT_EQ(left->selectedCount(), 0);
}

TEST_F(OnePane, goesToANameThatIsTyped) {
    EXPECT_TRUE(left->type(QStringLiteral("w")));
    EXPECT_EQ(current(), QStringLiteral("workshop.zip"));
    fake.clock.set(fake.clock.now() + std::chrono::seconds(5));
    EXPECT_FALSE(left->type(QStringLiteral(" ")));
    EXPECT_TRUE(left->type(QStringLiteral("invoice")));
    EXPECT_TRUE(left->type(QStringLiteral(" ")));
    EXPECT_TRUE(left->type(QStringLiteral("2")));
    EXPECT_EQ(selected(left), QStringList{"Invoice 2207.pdf"});
    EXPECT_TRUE(left->type(QStringLiteral("x")));
    EXPECT_EQ(current(), QStringLiteral("Invoice 2207.pdf"));
    EXPECT_FALSE(left->type(QStringLiteral("\t")));
    EXPECT_FALSE(left->type(QString()));
}

TEST_F(OnePane, becomesTheActiveOneWhenItIsPressed) {
    right->press(-1, Qt::NoModifier);
    EXPECT_TRUE(right->active());
    EXPECT_FALSE(left->active());
    left->pressForMenu(0);
    EXPECT_TRUE(left->active());
}

TEST_F(OnePane, takesFilesFromElsewhereOnly) {
    const FileUrl downloads("/home/user/Downloads");
    const FileUrl fernhill("/home/user/Downloads/Fernhill");
    const FileUrl zip("/home/user/Downloads/workshop.zip");
    const FileUrl other("/tmp/other.zip");
    EXPECT_TRUE(left->takes({other}, downloads));
    EXPECT_TRUE(left->takes({zip}, fernhill));
    EXPECT_TRUE(left->takes({zip, other}, downloads));
    EXPECT_FALSE(left->takes({zip}, downloads));
    EXPECT_FALSE(left->takes({}, downloads));
}

TEST_F(OnePane, takesNoFolderIntoItselfOrBelowItself) {
    const FileUrl downloads("/home/user/Downloads");
    const FileUrl fernhill("/home/user/Downloads/Fernhill");
    EXPECT_FALSE(left->takes({fernhill}, fernhill));
    EXPECT_FALSE(left->takes({downloads}, fernhill));
    EXPECT_FALSE(left->takes({FileUrl("/")}, downloads));
    EXPECT_FALSE(left->takes({FileUrl("/tmp/other.zip"), downloads}, fernhill));
    EXPECT_TRUE(left->takes({FileUrl("/home/user/Downloads/Fern")}, fernhill));
}

TEST_F(OnePane, takesNothingWhileFilesAreOnTheirWay) {
    store->transferring.set(true);
    EXPECT_FALSE(left->takes({FileUrl("/tmp/other.zip")}, FileUrl("/home/user/Downloads")));
}

}  // namespace
}  // namespace nookwise
