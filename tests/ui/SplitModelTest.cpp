#include "tests/ui/SplitFixture.h"

#include <QSignalSpy>
#include <algorithm>

namespace nookwise {
namespace {

class BothPanes : public SplitFixture {
  protected:
    bool exists(std::string_view path) const { return fake.files.exists(FileUrl(path)); }
};

TEST_F(BothPanes, beginWithDownloadsAndDocuments) {
    EXPECT_EQ(left->place(), QStringLiteral("~/Downloads"));
    EXPECT_EQ(right->place(), QStringLiteral("~/Documents"));
    EXPECT_TRUE(split.leftActive());
    EXPECT_EQ(split.active(), left);
}

TEST_F(BothPanes, sayWhatWouldGoWhere) {
    EXPECT_EQ(split.sentence(), QStringLiteral("Nothing selected in Downloads"));
    EXPECT_EQ(split.caption(), QString());
    choose(left, "Invoice 2207.pdf");
    choose(left, "lighting.json", Qt::ControlModifier);
    EXPECT_EQ(split.sentence(), QStringLiteral("2 selected in Downloads"));
    EXPECT_EQ(split.caption(), QStringLiteral("5 MB, goes to ~/Documents"));
    choose(right, "Glazes");
    EXPECT_EQ(split.sentence(), QStringLiteral("1 selected in Documents"));
    EXPECT_EQ(split.caption(), QStringLiteral("Goes to ~/Downloads"));
}

TEST_F(BothPanes, moveWhatIsSelectedToTheOtherSide) {
    choose(left, "Invoice 2207.pdf");
    choose(left, "lighting.json", Qt::ControlModifier);
    ASSERT_TRUE(split.canPass());
    split.moveSelected();
    run();
    EXPECT_TRUE(exists("/home/user/Documents/Invoice 2207.pdf"));
    EXPECT_TRUE(exists("/home/user/Documents/lighting.json"));
    EXPECT_FALSE(exists("/home/user/Downloads/lighting.json"));
    EXPECT_EQ(names(left), (QStringList{"Fernhill", "workshop.zip"}));
    EXPECT_TRUE(names(right).contains("lighting.json"));
    EXPECT_EQ(left->selectedCount(), 0);
    EXPECT_FALSE(split.canPass());
}

TEST_F(BothPanes, copyWhatIsSelectedToTheOtherSide) {
    choose(right, "Seed list.rtf");
    split.copySelected();
    run();
    EXPECT_TRUE(exists("/home/user/Documents/Seed list.rtf"));
    EXPECT_TRUE(names(left).contains("Seed list.rtf"));
    EXPECT_EQ(selected(right), QStringList{"Seed list.rtf"});
}

TEST_F(BothPanes, keepWhatIsSelectedWhereItStays) {
    choose(left, "Invoice 2207.pdf");
    choose(left, "lighting.json", Qt::ControlModifier);
    fake.files.forbidChanges("/home/user/Downloads/lighting.json");
    split.moveSelected();
    run();
    EXPECT_EQ(selected(left), QStringList{"lighting.json"});
}

TEST_F(BothPanes, passNothingWhereNothingWouldHappen) {
    EXPECT_FALSE(split.canPass());
    split.moveSelected();
    EXPECT_FALSE(store->transferring.get());
    choose(left, "lighting.json");
    QSignalSpy changed(&split, &SplitModel::changed);
    store->transferring.set(true);
    EXPECT_FALSE(split.canPass());
    EXPECT_FALSE(changed.isEmpty());
    store->transferring.set(false);
    EXPECT_TRUE(split.canPass());
}

TEST_F(BothPanes, passNothingInsideOneFolder) {
    left->goUp();
    right->goUp();
    run();
    left->selectAll();
    EXPECT_GT(left->selectedCount(), 0);
    EXPECT_FALSE(split.canPass());
}

TEST_F(BothPanes, exchangeTheirFolders) {
    split.swapSides();
    run();
    EXPECT_EQ(left->name(), QStringLiteral("Documents"));
    EXPECT_EQ(right->name(), QStringLiteral("Downloads"));
    EXPECT_EQ(names(left), (QStringList{"Glazes", "Seed list.rtf"}));
    EXPECT_TRUE(split.leftActive());
}

TEST_F(BothPanes, askBeforeTheyTrash) {
    split.trashSelected();
    EXPECT_FALSE(store->pendingTrash.get());
    choose(left, "Fernhill");
    choose(left, "lighting.json", Qt::ControlModifier);
    split.trashSelected();
    const auto& request = store->pendingTrash.get();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->source, "Split view");
    ASSERT_EQ(request->files.size(), 2U);
    EXPECT_EQ(request->files[0].url.path(), "/home/user/Downloads/Fernhill");
    EXPECT_EQ(request->files[1].url.path(), "/home/user/Downloads/lighting.json");
    EXPECT_EQ(request->files[1].size, 3 * megabyte);
}

TEST_F(BothPanes, readTheirFoldersAgainAfterTheTrash) {
    choose(left, "lighting.json");
    split.trashSelected();
    ASSERT_TRUE(store->pendingTrash.get());
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    run();
    EXPECT_FALSE(names(left).contains("lighting.json"));
}

TEST_F(BothPanes, readNothingForNobodyAfterTheTrash) {
    store->section.set(AppSection::split);
    store->section.set(AppSection::home);
    int lists = 0;
    fake.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::list) ++lists;
    });
    const FileUrl file("/home/user/Downloads/lighting.json");
    store->requestTrash({{.url = file}}, std::nullopt, "Ask");
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    run();
    EXPECT_FALSE(fake.files.exists(file));
    EXPECT_EQ(lists, 0);
}

TEST_F(BothPanes, handWhatIsSelectedToTheMenu) {
    EXPECT_FALSE(split.pointMenu());
    choose(right, "Seed list.rtf");
    EXPECT_TRUE(split.pointMenu());
    ASSERT_EQ(split.menu()->files().size(), 1U);
    EXPECT_EQ(split.menu()->files()[0].url.path(), "/home/user/Documents/Seed list.rtf");
}

TEST_F(BothPanes, showAFolderThatIsOpenedByTheMenu) {
    left->pressForMenu(rowOf(left, "Fernhill"));
    ASSERT_TRUE(split.pointMenu());
    split.menu()->open();
    run();
    EXPECT_EQ(left->name(), QStringLiteral("Fernhill"));
    EXPECT_TRUE(fake.workspace.opened.empty());
    left->pressForMenu(0);
    ASSERT_TRUE(split.pointMenu());
    split.menu()->open();
    ASSERT_EQ(fake.workspace.opened.size(), 1U);
    EXPECT_EQ(fake.workspace.opened[0].lastPathComponent(), "plan.pdf");
}

}  // namespace
}  // namespace nookwise
