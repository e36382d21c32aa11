#include "tests/ui/SplitFixture.h"
#include "ui/split/FileListMime.h"
#include "ui/split/PaneDropArea.h"

#include <QCoreApplication>
#include <QDragEnterEvent>

namespace nookwise {
namespace {

using Offer = PaneDropArea::Offer;

constexpr Qt::DropActions copyOrMove = Qt::CopyAction | Qt::MoveAction;

/// The list of the right pane begins 50 below its edge, and its rows are 40 high.
class DropArea : public SplitFixture {
  protected:
    DropArea() {
        area.setProperty("pane", QVariant::fromValue(right));
        area.setProperty("listTop", 50.0);
        area.setProperty("listBottom", 400.0);
        area.setProperty("rowsTop", 50.0);
        area.setProperty("rowHeight", 40.0);
    }

    static std::unique_ptr<QMimeData> ours(std::vector<std::string_view> paths) {
        std::vector<FileUrl> files;
        for (const auto path : paths) files.emplace_back(path);
        return std::make_unique<FileListMime>(std::move(files));
    }

    static std::unique_ptr<QMimeData> others(const char* list) {
        auto data = std::make_unique<QMimeData>();
        data->setData(QStringLiteral("text/uri-list"), list);
        return data;
    }

    /// Whether files over `y` are accepted, and as what.
    Qt::DropAction enter(const QMimeData& data, Qt::KeyboardModifiers keys = Qt::NoModifier,
                         int y = bare, Qt::DropActions possible = copyOrMove) {
        QDragEnterEvent entered(QPoint(100, y), possible, &data, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(&area, &entered);
        QDragMoveEvent moved(QPoint(100, y), possible, &data, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(&area, &moved);
        return moved.isAccepted() ? moved.dropAction() : Qt::IgnoreAction;
    }

    /// What the program that the files come from is told, once they were dropped and dealt with.
    Qt::DropAction drop(const QMimeData& data, Qt::KeyboardModifiers keys = Qt::NoModifier,
                        int y = bare, Qt::DropActions possible = copyOrMove) {
        const bool entered = enter(data, keys, y, possible) != Qt::IgnoreAction;
        QDropEvent dropped(QPointF(100, y), possible, &data, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(&area, &dropped);
        run();
        EXPECT_EQ(dropped.isAccepted(), entered);
        return dropped.isAccepted() ? dropped.dropAction() : Qt::IgnoreAction;
    }

    bool exists(std::string_view path) const { return fake.files.exists(FileUrl(path)); }

    /// Below the last row, on the folder Glazes, on the file below it, and on the header.
    static constexpr int bare = 300;
    static constexpr int onGlazes = 60;
    static constexpr int onFile = 100;
    static constexpr int onHeader = 20;
    static constexpr const char* seedList = "/home/user/Documents/Seed list.rtf";
    static constexpr const char* zip = "/home/user/Downloads/workshop.zip";

    PaneDropArea area;
};

TEST_F(DropArea, movesFilesOfTheOtherPane) {
    const auto data = ours({zip});
    EXPECT_EQ(enter(*data), Qt::MoveAction);
    EXPECT_EQ(area.offer(), Offer::Move);
    EXPECT_FALSE(area.foreign());
    drop(*data);
    EXPECT_FALSE(exists(zip));
    EXPECT_TRUE(exists("/home/user/Documents/workshop.zip"));
    EXPECT_EQ(area.offer(), Offer::None);
}

TEST_F(DropArea, copiesThemWithAltHeld) {
    const auto data = ours({zip});
    EXPECT_EQ(enter(*data, Qt::AltModifier), Qt::CopyAction);
    EXPECT_EQ(area.offer(), Offer::Copy);
    EXPECT_EQ(enter(*data), Qt::MoveAction);
    drop(*data, Qt::AltModifier);
    EXPECT_TRUE(exists(zip));
    EXPECT_TRUE(exists("/home/user/Documents/workshop.zip"));
}

TEST_F(DropArea, copiesThemWithCtrlHeldAsOtherProgramsDo) {
    EXPECT_EQ(enter(*ours({zip}), Qt::ControlModifier), Qt::CopyAction);
}

TEST_F(DropArea, putsFilesFromElsewhereIntoItsOwnFolderOnly) {
    const auto data = ours({zip});
    EXPECT_EQ(enter(*data, Qt::NoModifier, onGlazes), Qt::MoveAction);
    EXPECT_EQ(area.row(), -1);
    const auto foreign = others("file:///home/user/Documents/Seed%20list.rtf\r\n");
    EXPECT_EQ(enter(*foreign, Qt::NoModifier, onGlazes), Qt::IgnoreAction);
    drop(*data, Qt::NoModifier, onGlazes);
    EXPECT_TRUE(exists("/home/user/Documents/workshop.zip"));
}

TEST_F(DropArea, putsFilesIntoAFolderOfTheirOwnPane) {
    const auto data = ours({seedList});
    EXPECT_EQ(enter(*data), Qt::IgnoreAction);
    EXPECT_EQ(area.offer(), Offer::None);
    EXPECT_EQ(enter(*data, Qt::AltModifier), Qt::IgnoreAction);
    EXPECT_EQ(enter(*data, Qt::NoModifier, onFile), Qt::IgnoreAction);
    EXPECT_EQ(enter(*data, Qt::NoModifier, onHeader), Qt::IgnoreAction);
    EXPECT_EQ(enter(*data, Qt::NoModifier, onGlazes), Qt::MoveAction);
    EXPECT_EQ(area.row(), 0);
    drop(*data, Qt::NoModifier, onGlazes);
    EXPECT_TRUE(exists("/home/user/Documents/Glazes/Seed list.rtf"));
}

TEST_F(DropArea, followsTheRowsThatScrollUnderAPointerAtRest) {
    const auto data = ours({seedList});
    EXPECT_EQ(enter(*data, Qt::NoModifier, onFile), Qt::IgnoreAction);
    area.setProperty("rowsTop", 90.0);
    EXPECT_EQ(area.row(), 0);
    EXPECT_EQ(area.offer(), Offer::Move);
    area.setProperty("rowsTop", 10.0);
    EXPECT_EQ(area.row(), -1);
    EXPECT_EQ(area.offer(), Offer::None);
    QDragLeaveEvent gone;
    QCoreApplication::sendEvent(&area, &gone);
    area.setProperty("rowsTop", 90.0);
    EXPECT_EQ(area.offer(), Offer::None);
}

TEST_F(DropArea, takesNoFolderIntoItself) {
    const auto data = ours({"/home/user/Documents/Glazes"});
    EXPECT_EQ(enter(*data, Qt::NoModifier, onGlazes), Qt::IgnoreAction);
    EXPECT_EQ(enter(*ours({"/home/user"})), Qt::IgnoreAction);
    EXPECT_EQ(drop(*ours({"/home/user/Documents"}), Qt::NoModifier, onGlazes), Qt::IgnoreAction);
    EXPECT_FALSE(store->transferring.get());
    EXPECT_EQ(area.row(), -1);
}

TEST_F(DropArea, copiesFilesOfOtherPrograms) {
    const auto data = others("file:///home/user/Downloads/workshop.zip\r\n");
    EXPECT_EQ(enter(*data), Qt::CopyAction);
    EXPECT_EQ(area.offer(), Offer::Copy);
    EXPECT_TRUE(area.foreign());
    drop(*data);
    EXPECT_TRUE(exists(zip));
    EXPECT_TRUE(exists("/home/user/Documents/workshop.zip"));
}

TEST_F(DropArea, movesFilesOfOtherProgramsWithShiftHeld) {
    const auto data = others("file:///home/user/Downloads/workshop.zip\r\n");
    EXPECT_EQ(enter(*data, Qt::ShiftModifier), Qt::MoveAction);
    EXPECT_EQ(area.offer(), Offer::Move);
    EXPECT_EQ(enter(*data, Qt::ShiftModifier, bare, Qt::CopyAction), Qt::CopyAction);
}

TEST_F(DropArea, movesFilesOfProgramsThatOfferNothingElse) {
    const auto data = others("file:///home/user/Downloads/workshop.zip\r\n");
    EXPECT_EQ(enter(*data, Qt::NoModifier, bare, Qt::MoveAction), Qt::MoveAction);
    drop(*data, Qt::NoModifier, bare, Qt::MoveAction);
    EXPECT_FALSE(exists(zip));
}

TEST_F(DropArea, takesNoFilesThatAreOfferedAsLinksOnly) {
    const auto data = others("file:///home/user/Downloads/workshop.zip\r\n");
    EXPECT_EQ(enter(*data, Qt::NoModifier, bare, Qt::LinkAction), Qt::IgnoreAction);
    EXPECT_EQ(enter(*data, Qt::ShiftModifier, bare, Qt::LinkAction), Qt::IgnoreAction);
    EXPECT_EQ(area.offer(), Offer::None);
    EXPECT_EQ(drop(*data, Qt::NoModifier, bare, Qt::LinkAction), Qt::IgnoreAction);
    EXPECT_TRUE(exists(zip));
    EXPECT_FALSE(exists("/home/user/Documents/workshop.zip"));
}

TEST_F(DropArea, leavesNobodyElseAnythingToTakeAway) {
    EXPECT_EQ(drop(*ours({zip})), Qt::CopyAction);
    const auto data = others("file:///home/user/Downloads/lighting.json\r\n");
    EXPECT_EQ(drop(*data, Qt::NoModifier, bare, Qt::MoveAction), Qt::IgnoreAction);
    EXPECT_TRUE(exists("/home/user/Documents/lighting.json"));
}

TEST_F(DropArea, takesNamesThatAreNotUtf8) {
    fake.files.addFile("/home/user/Downloads/bad\xff.zip");
    drop(*others("file:///home/user/Downloads/bad%FF.zip\r\n"));
    EXPECT_TRUE(exists("/home/user/Documents/bad\xff.zip"));
}

TEST_F(DropArea, takesNothingButLocalFiles) {
    EXPECT_EQ(enter(*others("https://example.org/a.zip\r\n")), Qt::IgnoreAction);
    QMimeData words;
    words.setText(QStringLiteral("file:///home/user/Downloads/workshop.zip"));
    EXPECT_EQ(drop(words), Qt::IgnoreAction);
    EXPECT_EQ(area.offer(), Offer::None);
    EXPECT_FALSE(exists("/home/user/Documents/workshop.zip"));
}

TEST_F(DropArea, takesNothingWhileFilesAreOnTheirWay) {
    const auto data = ours({zip});
    EXPECT_EQ(enter(*data), Qt::MoveAction);
    store->transferring.set(true);
    EXPECT_EQ(enter(*data), Qt::IgnoreAction);
    EXPECT_EQ(area.offer(), Offer::None);
}

TEST_F(DropArea, offersNothingOnceThePointerLeaves) {
    enter(*ours({zip}));
    EXPECT_EQ(area.pointerY(), bare);
    QDragLeaveEvent gone;
    QCoreApplication::sendEvent(&area, &gone);
    EXPECT_EQ(area.offer(), Offer::None);
    EXPECT_EQ(area.pointerY(), -1);
}

TEST_F(DropArea, dropsIntoNoOtherFolderThanItOffered) {
    const auto data = ours({seedList});
    EXPECT_EQ(enter(*data, Qt::NoModifier, onGlazes), Qt::MoveAction);
    fake.files.remove("/home/user/Documents/Glazes");
    split.show();
    run();
    QDropEvent dropped(QPointF(100, onGlazes), copyOrMove, data.get(), Qt::LeftButton,
                       Qt::NoModifier);
    QCoreApplication::sendEvent(&area, &dropped);
    EXPECT_FALSE(dropped.isAccepted());
    EXPECT_FALSE(store->transferring.get());
}

}  // namespace
}  // namespace nookwise
