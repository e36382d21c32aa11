#include "tests/ui/StoreFixture.h"
#include "ui/trash/TrashSheetModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class TrashSheetShown : public StoreFixture {
  protected:
    TrashSheetShown() {
        fake.files.addFile("/home/user/Downloads/a.zip", {.size = 600 * megabyte});
        fake.files.addFile("/home/user/Downloads/b.zip", {.size = 300 * megabyte});
    }

    void ask(std::optional<PileKind> pile, std::string_view source) {
        store->requestTrash({file("/home/user/Downloads/a.zip", 600 * megabyte),
                             file("/home/user/Downloads/b.zip", 300 * megabyte)},
                            pile, source);
    }

    bool isThere(std::string_view path) { return fake.files.exists(FileUrl(path)); }

    TrashSheetModel sheet{*store};
};

TEST_F(TrashSheetShown, isClosedWhileNothingIsAsked) {
    EXPECT_FALSE(sheet.open());
    EXPECT_EQ(sheet.title(), QString());
    EXPECT_EQ(sheet.detail(), QString());
    EXPECT_EQ(sheet.switchText(), QString());
    EXPECT_EQ(sheet.pile(), QString());
    EXPECT_EQ(sheet.count(), 0);
    sheet.confirm();
    sheet.cancel();
    EXPECT_TRUE(store->activity.get().empty());
}

TEST_F(TrashSheetShown, asksForThePile) {
    QSignalSpy changed(&sheet, &TrashSheetModel::changed);
    ask(PileKind::forgotten, title(PileKind::forgotten));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(sheet.open());
    EXPECT_EQ(sheet.pile(), QStringLiteral("forgotten"));
    EXPECT_EQ(sheet.count(), 2);
    EXPECT_EQ(sheet.title(), QStringLiteral("Move 2 downloads to the Trash?"));
    EXPECT_EQ(sheet.detail(),
              QStringLiteral("900 MB goes back to your Mac. Nothing is erased — you can put them "
                             "back from the Trash, or press ⌘Z right after."));
    EXPECT_EQ(sheet.switchText(), QStringLiteral("Don’t ask again for downloads"));
    EXPECT_FALSE(sheet.dontAskAgain());
}

TEST_F(TrashSheetShown, asksForFilesOfNoPile) {
    ask(std::nullopt, "Screenshots");
    EXPECT_EQ(sheet.pile(), QString());
    EXPECT_EQ(sheet.title(), QStringLiteral("Move 2 files to the Trash?"));
    EXPECT_EQ(sheet.switchText(), QStringLiteral("Don’t ask again for this"));
}

TEST_F(TrashSheetShown, movesTheFilesWhenItIsConfirmed) {
    ask(PileKind::forgotten, title(PileKind::forgotten));
    sheet.confirm();
    EXPECT_FALSE(sheet.open());
    EXPECT_FALSE(isThere("/home/user/Downloads/a.zip"));
    EXPECT_FALSE(isThere("/home/user/Downloads/b.zip"));
    ask(PileKind::forgotten, title(PileKind::forgotten));
    EXPECT_TRUE(sheet.open());
}

TEST_F(TrashSheetShown, leavesTheFilesWhenItIsCancelled) {
    ask(PileKind::forgotten, title(PileKind::forgotten));
    sheet.setDontAskAgain(true);
    sheet.cancel();
    EXPECT_FALSE(sheet.open());
    EXPECT_TRUE(isThere("/home/user/Downloads/a.zip"));
    ask(PileKind::forgotten, title(PileKind::forgotten));
    EXPECT_TRUE(sheet.open());
}

TEST_F(TrashSheetShown, asksNoMoreForASourceThatWasSwitchedOff) {
    ask(PileKind::forgotten, title(PileKind::forgotten));
    sheet.setDontAskAgain(true);
    sheet.confirm();
    ask(PileKind::forgotten, title(PileKind::forgotten));
    EXPECT_FALSE(sheet.open());
    ask(PileKind::installers, title(PileKind::installers));
    EXPECT_TRUE(sheet.open());
}

TEST_F(TrashSheetShown, beginsEachRequestWithTheSwitchOff) {
    ask(PileKind::forgotten, title(PileKind::forgotten));
    sheet.setDontAskAgain(true);
    sheet.cancel();
    ask(PileKind::large, title(PileKind::large));
    EXPECT_FALSE(sheet.dontAskAgain());
    EXPECT_EQ(sheet.switchText(), QStringLiteral("Don’t ask again for large files"));
}

TEST_F(TrashSheetShown, tellsWhenTheSwitchTurnsAndOnlyThen) {
    QSignalSpy changed(&sheet, &TrashSheetModel::changed);
    sheet.setDontAskAgain(true);
    sheet.setDontAskAgain(true);
    EXPECT_EQ(changed.size(), 1);
}

}  // namespace
}  // namespace nookwise
