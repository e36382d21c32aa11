#include "tests/ui/StoreFixture.h"
#include "ui/bridge/FileMenu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

namespace nookwise {
namespace {

class Menu : public StoreFixture {
  protected:
    static constexpr const char* letter = "/home/user/Downloads/letter.pdf";
    static constexpr const char* photo = "/home/user/Desktop/photo.HEIC";
    static constexpr const char* notes = "/home/user/Desktop/notes.txt";

    void setText(std::string_view path, std::string_view text) {
        store->texts.mutate([&](TextsByUrl& texts) {
            texts.insert_or_assign(FileUrl(path), SharedBytes(text));
            return true;
        });
    }

    void point(std::initializer_list<std::string_view> paths) {
        std::vector<FileItem> files;
        for (const auto path : paths) files.push_back(file(path, megabyte));
        menu.setFiles(std::move(files));
    }

    FileMenu menu{*store, fake.platform(), "Ask"};
};

TEST_F(Menu, offersNothingWithoutFiles) {
    EXPECT_FALSE(menu.any());
    EXPECT_FALSE(menu.canOpen());
    EXPECT_FALSE(menu.canRename());
    EXPECT_FALSE(menu.canCopyText());
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    menu.open();
    menu.showInFolder();
    menu.renameByText();
    menu.copyText();
    menu.moveToTrash();
    EXPECT_TRUE(fake.workspace.opened.empty());
    EXPECT_TRUE(fake.workspace.revealed.empty());
    EXPECT_FALSE(store->renameFiles.get());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    EXPECT_FALSE(store->pendingTrash.get());
}

TEST_F(Menu, opensAndShowsEveryFile) {
    point({letter, photo});
    menu.open();
    menu.showInFolder();
    const std::vector<FileUrl> both{FileUrl(letter), FileUrl(photo)};
    EXPECT_EQ(fake.workspace.opened, both);
    EXPECT_EQ(fake.workspace.revealed, std::vector<std::vector<FileUrl>>{both});
}

TEST_F(Menu, doesNotOpenMoreFilesThanADesktopHolds) {
    std::vector<FileItem> files;
    for (int i = 0; i < 20; ++i) files.push_back(file("/a/" + std::to_string(i), megabyte));
    menu.setFiles(files);
    EXPECT_TRUE(menu.canOpen());
    files.push_back(file("/a/more", megabyte));
    menu.setFiles(files);
    EXPECT_FALSE(menu.canOpen());
    menu.open();
    EXPECT_TRUE(fake.workspace.opened.empty());
}

TEST_F(Menu, renamesPicturesAndPdfsOnly) {
    struct Case {
        const char* path;
        bool can;
    };
    for (const auto& [path, can] :
         {Case{letter, true}, Case{photo, true}, Case{"/a/LETTER.PDF", true}, Case{notes, false},
          Case{"/a/pdf", false}, Case{"/a/clip.mov", false}}) {
        point({path});
        EXPECT_EQ(menu.canRename(), can) << path;
    }
    point({notes});
    menu.renameByText();
    EXPECT_FALSE(store->renameFiles.get());
    point({notes, letter, photo});
    EXPECT_TRUE(menu.canRename());
    menu.renameByText();
    ASSERT_TRUE(store->renameFiles.get());
    EXPECT_EQ(*store->renameFiles.get(),
              std::vector({file(letter, megabyte), file(photo, megabyte)}));
}

TEST_F(Menu, copiesTheWholeTextOfOneFile) {
    setText(letter, "\n14 beds\n");
    point({letter});
    EXPECT_TRUE(menu.canCopyText());
    menu.copyText();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("\n14 beds\n"));
    setText(photo, "a kiln");
    point({letter, photo});
    EXPECT_FALSE(menu.canCopyText());
}

TEST_F(Menu, copiesNoTextThatSaysNothing) {
    setText(letter, " \n\f\t ");
    point({letter});
    EXPECT_FALSE(menu.canCopyText());
}

TEST_F(Menu, noticesThatTextIsReadMeanwhile) {
    point({letter});
    QSignalSpy changed(&menu, &FileMenu::changed);
    QSignalSpy replaced(&menu, &FileMenu::replaced);
    setText(photo, "another file’s");
    EXPECT_EQ(changed.size(), 0);
    setText(letter, "14 beds");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(menu.canCopyText());
    EXPECT_EQ(replaced.size(), 0);
}

TEST_F(Menu, tellsWhenOtherFilesArePointedAt) {
    point({letter});
    QSignalSpy replaced(&menu, &FileMenu::replaced);
    auto sameFile = file(letter, 2 * megabyte);
    menu.setFiles({sameFile});
    EXPECT_EQ(replaced.size(), 0);
    EXPECT_EQ(menu.files(), std::vector{sameFile});
    point({letter, photo});
    EXPECT_EQ(replaced.size(), 1);
    point({});
    EXPECT_EQ(replaced.size(), 2);
}

TEST_F(Menu, asksBeforeFilesGoToTheTrashUnderTheScreensName) {
    point({letter, photo});
    menu.moveToTrash();
    const auto& request = store->pendingTrash.get();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->files, menu.files());
    EXPECT_EQ(request->source, "Ask");
    EXPECT_EQ(request->pile, std::nullopt);
}

}  // namespace
}  // namespace nookwise
