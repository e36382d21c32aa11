#include "tests/ui/StoreFixture.h"
#include "ui/trash/ToastModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class ToastShown : public StoreFixture {
  protected:
    void trash(std::string_view path) {
        fake.files.addFile(path, {.size = megabyte});
        store->confirm(trashRequest({file(path, megabyte)}, std::nullopt, "Recent"),
                       AppStore::NextTime::ask);
    }

    void say(std::string message, std::optional<Uuid> entryID = std::nullopt) {
        store->toast.set(Toast{Uuid::random(), std::move(message), entryID});
    }

    ToastModel toast{*store};
};

TEST_F(ToastShown, isNotThereAtFirst) {
    EXPECT_FALSE(toast.isShown());
    EXPECT_FALSE(toast.canUndo());
    EXPECT_FALSE(toast.canShowInTrash());
    EXPECT_FALSE(toast.moving());
}

TEST_F(ToastShown, offersTheWayBackFromTheTrash) {
    QSignalSpy changed(&toast, &ToastModel::changed);
    trash("/home/user/Downloads/a.zip");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(toast.isShown());
    EXPECT_EQ(toast.message(), QStringLiteral("1 file moved to Trash · 1 MB freed"));
    EXPECT_TRUE(toast.canUndo());
    EXPECT_TRUE(toast.canShowInTrash());
    toast.undo();
    EXPECT_TRUE(fake.files.exists(FileUrl("/home/user/Downloads/a.zip")));
    EXPECT_EQ(toast.message(), QStringLiteral("Put back 1 file"));
    EXPECT_FALSE(toast.canUndo());
}

TEST_F(ToastShown, showsWhereTheFilesAre) {
    trash("/home/user/Downloads/a.zip");
    toast.showInTrash();
    ASSERT_EQ(fake.workspace.revealed.size(), 1U);
    ASSERT_EQ(fake.workspace.revealed[0].size(), 1U);
    EXPECT_EQ(fake.workspace.revealed[0][0], store->activity.get()[0].moves[0].inTrash);
    EXPECT_TRUE(toast.isShown());
}

TEST_F(ToastShown, offersNothingForAMessageWithoutAnEntry) {
    say("Couldn’t move 2 files to the Trash");
    EXPECT_TRUE(toast.isShown());
    EXPECT_FALSE(toast.canUndo());
    EXPECT_FALSE(toast.canShowInTrash());
    toast.showInTrash();
    EXPECT_TRUE(fake.workspace.revealed.empty());
}

TEST_F(ToastShown, showsInTheTrashOnlyWhatIsThere) {
    for (const auto kind : {ActivityEntry::Kind::move, ActivityEntry::Kind::copy,
                            ActivityEntry::Kind::rename, ActivityEntry::Kind::trash}) {
        const auto id = Uuid::random();
        store->activity.set({ActivityEntry{.id = id, .title = "t", .source = "s", .kind = kind}});
        say("done", id);
        EXPECT_TRUE(toast.canUndo());
        EXPECT_EQ(toast.canShowInTrash(), kind == ActivityEntry::Kind::trash);
    }
    say("done", Uuid::random());
    EXPECT_FALSE(toast.canShowInTrash());
}

TEST_F(ToastShown, turnsWhileFilesAreOnTheirWay) {
    store->transferring.set(true);
    EXPECT_FALSE(toast.moving());
    say("Moving 3 files…");
    EXPECT_TRUE(toast.moving());
    const auto id = Uuid::random();
    store->activity.set({ActivityEntry{.id = id, .title = "t", .source = "s"}});
    say("1 file moved to Trash", id);
    EXPECT_FALSE(toast.moving());
    say("Moving 3 files…");
    store->transferring.set(false);
    EXPECT_FALSE(toast.moving());
}

TEST_F(ToastShown, closes) {
    trash("/home/user/Downloads/a.zip");
    toast.close();
    EXPECT_FALSE(toast.isShown());
    EXPECT_FALSE(fake.files.exists(FileUrl("/home/user/Downloads/a.zip")));
}

TEST_F(ToastShown, keepsItsWordsWhileItGoes) {
    say("Old names are back");
    store->toast.set(std::nullopt);
    EXPECT_FALSE(toast.isShown());
    EXPECT_EQ(toast.message(), QStringLiteral("Old names are back"));
}

TEST_F(ToastShown, undoesTheNewestActionWithoutAToast) {
    trash("/home/user/Downloads/a.zip");
    toast.close();
    toast.undoLast();
    EXPECT_TRUE(fake.files.exists(FileUrl("/home/user/Downloads/a.zip")));
}

}  // namespace
}  // namespace nookwise
