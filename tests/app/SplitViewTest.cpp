#include "app/SplitView.h"
#include "tests/app/StoreFixture.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Side = SplitView::Side;

class TwoFolders : public StoreFixture {
  protected:
    TwoFolders() {
        for (const auto* name : {"a", "b", "c"}) world.files.addFile(downloads.append(name).path());
        world.files.addFile("/home/user/Downloads/folder/inside");
        world.files.addFile("/home/user/Documents/d");
        store = launch();
        store->section.set(AppSection::split);
        view = std::make_unique<SplitView>(store, world.platform());
    }

    void show() {
        view->show();
        world.tasks.runEverything();
    }
    void transferSelected(TransferKind kind) {
        view->transferSelected(kind);
        world.tasks.runEverything();
    }
    void drop(const std::vector<FileUrl>& urls, Side side, TransferKind kind = TransferKind::move) {
        view->drop(urls, side, kind);
        world.tasks.runEverything();
    }
    static std::vector<std::string> names(const Pane& pane) {
        std::vector<std::string> result;
        for (const auto& item : pane.items.get()) {
            result.emplace_back(item.url.lastPathComponent());
        }
        return result;
    }
    std::string message() const { return store->toast.get() ? store->toast.get()->message : ""; }
    std::size_t listings() const { return world.tasks.detachedPriorities().size(); }

    const FileUrl home{"/home/user"};
    const FileUrl downloads{"/home/user/Downloads"};
    const FileUrl documents{"/home/user/Documents"};
    const FileUrl folder{"/home/user/Downloads/folder"};
    std::shared_ptr<AppStore> store;
    std::unique_ptr<SplitView> view;
};

TEST_F(TwoFolders, areDownloadsAndDocumentsAndListNothingUnasked) {
    world.tasks.runEverything();
    EXPECT_EQ(view->left.folder.get(), downloads);
    EXPECT_EQ(view->right.folder.get(), documents);
    EXPECT_EQ(view->active.get(), Side::left);
    EXPECT_THAT(view->left.items.get(), IsEmpty());
}

TEST_F(TwoFolders, areTheUsersOwnWhateverTheirNames) {
    world.folders.downloadsFolder = home.append("Téléchargements");
    world.folders.documentsFolder = home.append("Papiers");
    const SplitView other(store, world.platform());
    EXPECT_EQ(other.left.folder.get(), home.append("Téléchargements"));
    EXPECT_EQ(other.right.folder.get(), home.append("Papiers"));
}

TEST_F(TwoFolders, areListedWhenTheyComeIntoSight) {
    show();
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c"));
    EXPECT_THAT(names(view->right), ElementsAre("d"));
}

TEST_F(TwoFolders, areBothListedAgainAfterAMoveAndKeepTheSelectionThatIsThere) {
    show();
    view->left.selection.set({downloads.append("b"), downloads.append("a")});
    view->right.selection.set({documents.append("d")});
    transferSelected(TransferKind::move);
    EXPECT_THAT(names(view->left), ElementsAre("folder", "c"));
    EXPECT_THAT(names(view->right), ElementsAre("a", "b", "d"));
    EXPECT_THAT(view->left.selection.get(), IsEmpty());
    EXPECT_THAT(view->right.selection.get(), UnorderedElementsAre(documents.append("d")));
    EXPECT_EQ(message(), "2 files moved to Documents");
}

TEST_F(TwoFolders, areBothListedAgainAfterAPutBack) {
    show();
    view->left.selection.set({downloads.append("a")});
    transferSelected(TransferKind::move);
    store->undoLast();
    world.tasks.runEverything();
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c"));
    EXPECT_THAT(names(view->right), ElementsAre("d"));
}

TEST_F(TwoFolders, areNotListedForNobody) {
    store->transfer({downloads.append("a")}, documents, TransferKind::move);
    auto before = listings();
    world.tasks.runEverything();
    EXPECT_EQ(listings(), before) << "never shown yet";
    show();
    store->section.set(AppSection::home);
    store->transfer({downloads.append("b")}, documents, TransferKind::move);
    before = listings();
    world.tasks.runEverything();
    EXPECT_EQ(listings(), before) << "no longer in sight";
    store->section.set(AppSection::split);
    show();
    EXPECT_THAT(names(view->right), ElementsAre("a", "b", "d"));
}

TEST_F(TwoFolders, passOnTheSelectionInTheOrderOfTheList) {
    show();
    view->left.selection.set({downloads.append("c"), folder, downloads.append("a")});
    transferSelected(TransferKind::copy);
    ASSERT_FALSE(store->activity.get().empty());
    EXPECT_THAT(store->activity.get().front().names(), ElementsAre("folder", "a", "c"));
    EXPECT_EQ(store->activity.get().front().effectiveKind(), ActivityEntry::Kind::copy);
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c"));
    EXPECT_THAT(view->left.selection.get().size(), 3u) << "the originals are still there";
}

TEST_F(TwoFolders, passOnFromTheActiveSide) {
    show();
    view->active.set(Side::right);
    view->left.selection.set({downloads.append("a")});
    view->right.selection.set({documents.append("d")});
    transferSelected(TransferKind::move);
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c", "d"));
    EXPECT_THAT(names(view->right), IsEmpty());
}

TEST_F(TwoFolders, doNothingWithoutASelection) {
    show();
    const auto before = listings();
    transferSelected(TransferKind::move);
    EXPECT_EQ(listings(), before);
    EXPECT_EQ(message(), "");
}

TEST_F(TwoFolders, takeInWhatIsDroppedOnThem) {
    show();
    world.files.addFile("/disk/photo");
    drop({FileUrl("/disk/photo")}, Side::right);
    drop({downloads.append("a")}, Side::right, TransferKind::copy);
    EXPECT_THAT(names(view->right), ElementsAre("a", "d", "photo"));
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c"));
}

TEST_F(TwoFolders, takeInAFileOnceThatIsDroppedTwice) {
    show();
    const auto a = downloads.append("a");
    drop({a, a}, Side::right, TransferKind::copy);
    EXPECT_THAT(names(view->right), ElementsAre("a", "d"));
    EXPECT_EQ(message(), "1 file copied to Documents");
}

TEST_F(TwoFolders, leaveAloneWhatIsDroppedWhereItIs) {
    show();
    drop({downloads.append("a")}, Side::left);
    EXPECT_EQ(message(), "Couldn’t move that file — a file with that name may be in use");
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c"));
}

TEST_F(TwoFolders, takeADropIntoAListedFolder) {
    show();
    view->dropInto({downloads.append("a"), downloads.append("b")}, folder, TransferKind::move);
    world.tasks.runEverything();
    EXPECT_THAT(names(view->left), ElementsAre("folder", "c"));
    EXPECT_EQ(message(), "2 files moved to folder");
}

TEST_F(TwoFolders, neverPutAFolderIntoItselfOrItsChild) {
    world.files.addFolder("/home/user/Downloads/folder/child");
    show();
    for (const auto kind : {TransferKind::move, TransferKind::copy}) {
        for (const auto& into : {folder, folder.append("child")}) {
            view->dropInto({folder}, into, kind);
            world.tasks.runEverything();
            EXPECT_EQ(message().substr(0, 11), "Couldn’t ") << message();
            EXPECT_TRUE(world.files.exists(folder.append("inside")));
            EXPECT_TRUE(world.files.exists(folder.append("child")));
        }
    }
    EXPECT_THAT(names(view->left), ElementsAre("folder", "a", "b", "c"));
    EXPECT_TRUE(store->activity.get().empty());
}

TEST_F(TwoFolders, passOnTheRestWhereOneOfSeveralCannotGo) {
    show();
    view->dropInto({folder, downloads.append("a")}, folder, TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(message(), "1 file moved to folder");
    EXPECT_TRUE(world.files.exists(folder.append("a")));
}

TEST_F(TwoFolders, leaveWhatIsDroppedWithItsFolderInThatFolder) {
    world.files.addFile("/home/user/Downloads/folder/deeper/file", {.contents = "f"});
    show();
    drop({folder.append("inside"), folder, folder.append("deeper").append("file")}, Side::right);
    EXPECT_EQ(message(), "1 file moved to Documents");
    EXPECT_TRUE(world.files.exists(documents.append("folder").append("inside")));
    EXPECT_FALSE(world.files.exists(documents.append("inside")));
    store->undoLast();
    world.tasks.runEverything();
    EXPECT_TRUE(world.files.exists(folder.append("inside")));
    EXPECT_EQ(world.files.contents("/home/user/Downloads/folder/deeper/file"), "f");
    EXPECT_FALSE(world.files.exists(documents.append("folder")));
}

TEST_F(TwoFolders, neverMoveTheHomeFolderOrWhatHoldsIt) {
    show();
    view->dropInto({home, FileUrl("/home"), FileUrl("/"), FileUrl("/home/./user/"), FileUrl()},
                   FileUrl("/disk"), TransferKind::move);
    EXPECT_FALSE(store->transferring.get());
    world.tasks.runEverything();
    EXPECT_TRUE(world.files.exists(downloads.append("a")));
    EXPECT_EQ(message(), "");
}

TEST_F(TwoFolders, swapWithTheirItemsAndSelections) {
    show();
    view->left.selection.set({downloads.append("a")});
    view->swapSides();
    EXPECT_EQ(view->left.folder.get(), documents);
    EXPECT_EQ(view->right.folder.get(), downloads);
    EXPECT_THAT(names(view->left), ElementsAre("d")) << "nothing flickers";
    EXPECT_EQ(view->active.get(), Side::left);
    EXPECT_TRUE(view->left.loading.get());
    world.tasks.runEverything();
    EXPECT_THAT(names(view->left), ElementsAre("d"));
    EXPECT_THAT(names(view->right), ElementsAre("folder", "a", "b", "c"));
    EXPECT_THAT(view->right.selection.get(), UnorderedElementsAre(downloads.append("a")));
    EXPECT_THAT(view->left.selection.get(), IsEmpty());
    EXPECT_FALSE(view->left.loading.get() || view->right.loading.get());
}

TEST_F(TwoFolders, swapBeforeTheirListingsHaveLanded) {
    view->show();
    view->swapSides();
    world.tasks.runEverything();
    EXPECT_THAT(names(view->left), ElementsAre("d"));
    EXPECT_THAT(names(view->right), ElementsAre("folder", "a", "b", "c"));
}

TEST_F(TwoFolders, swapWhereBothAreTheSame) {
    view->right.open(downloads);
    show();
    view->right.selection.set({downloads.append("a")});
    view->swapSides();
    world.tasks.runEverything();
    EXPECT_THAT(view->left.selection.get(), UnorderedElementsAre(downloads.append("a")));
    EXPECT_THAT(view->right.selection.get(), IsEmpty());
}

TEST_F(TwoFolders, followAFolderThatWasMovedAndPutBack) {
    show();
    view->right.open(folder);
    world.files.addFolder("/home/user/Documents/archive");
    store->transfer({folder}, documents.append("archive"), TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(view->right.folder.get(), documents.append("archive").append("folder"));
    EXPECT_THAT(names(view->right), ElementsAre("inside"));
    store->undoLast();
    world.tasks.runEverything();
    EXPECT_EQ(view->right.folder.get(), folder);
    EXPECT_THAT(names(view->right), ElementsAre("inside"));
}

TEST_F(TwoFolders, areListedOnceAfterEveryChange) {
    show();
    int lists = 0;
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::list) ++lists;
    });
    store->transfer({downloads.append("a")}, documents, TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(lists, 2) << "each folder once";
    store->undoLast();
    world.tasks.runEverything();
    EXPECT_EQ(lists, 4);
}

TEST_F(TwoFolders, areListedAgainAfterTheTrash) {
    show();
    store->requestTrash({sized("/home/user/Downloads/a", 1)}, std::nullopt, "Ask");
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    world.tasks.runEverything();
    EXPECT_THAT(names(view->left), ElementsAre("folder", "b", "c"));
}

TEST_F(TwoFolders, areNotListedAnyMoreWhenTheyGoOutOfSightRightAfterAChange) {
    show();
    store->transfer({downloads.append("a")}, documents, TransferKind::move);
    const auto before = listings();
    world.tasks.runBackgroundTask();
    const auto hide = store->toast.observe([&] { store->section.set(AppSection::home); });
    world.tasks.runEverything();
    EXPECT_EQ(listings(), before);
}

TEST_F(TwoFolders, mayEndBeforeTheyAreListedAfterAChange) {
    show();
    store->transfer({downloads.append("a")}, documents, TransferKind::move);
    world.tasks.runBackgroundTask();
    const auto end = store->toast.observe([&] { view.reset(); });
    world.tasks.runEverything();
    EXPECT_FALSE(view);
}

TEST_F(TwoFolders, findFoldersThatWereMovedWhileTheyWereOutOfSight) {
    world.files.addFolder("/home/user/Documents/archive");
    show();
    view->left.open(folder);
    view->right.open(folder);
    world.tasks.runEverything();
    store->section.set(AppSection::home);
    store->transfer({folder}, documents, TransferKind::move);
    world.tasks.runEverything();
    store->transfer({documents.append("folder")}, documents.append("archive"), TransferKind::move);
    world.tasks.runEverything();
    store->section.set(AppSection::split);
    show();
    EXPECT_EQ(view->left.folder.get(), documents.append("archive").append("folder"));
    EXPECT_THAT(names(view->left), ElementsAre("inside"));
    EXPECT_EQ(view->right.folder.get(), documents.append("archive").append("folder"));
}

TEST_F(TwoFolders, followAFolderBelowOneThatWasMoved) {
    world.files.addFile("/home/user/Downloads/folder/deeper/file");
    show();
    view->right.open(folder.append("deeper"));
    store->transfer({folder}, documents, TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(view->right.folder.get(), documents.append("folder").append("deeper"));
    EXPECT_THAT(names(view->right), ElementsAre("file"));
}

TEST_F(TwoFolders, goUpFromAFolderThatSomebodyElseRemoved) {
    show();
    view->left.open(folder);
    world.tasks.runEverything();
    world.files.remove(folder.path());
    store->transfer({documents.append("d")}, downloads, TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(view->left.folder.get(), downloads);
    EXPECT_THAT(names(view->left), ElementsAre("a", "b", "c", "d"));
}

}  // namespace
}  // namespace nookwise
