#include "ui/split/FileDrag.h"

#include "ui/split/FileListMime.h"

#include <QDrag>
#include <QGuiApplication>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

namespace nookwise {

void FileDrag::start(PaneModel* pane, QQuickWindow* window, const QImage& picture,
                     const QPointF& hotSpot, double ratio) {
    std::vector<FileUrl> files;
    for (const auto& item : pane->selectedItems()) files.push_back(item.url);
    if (files.empty()) return;
    QPixmap pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(ratio);
    // Dragging has an event loop of its own, in which rows may come and go: none of them may be in
    // the midst of something.
    QTimer::singleShot(0, window,
                       [self = QPointer(this), window, files = std::move(files), pixmap,
                        hotSpot = hotSpot.toPoint()] {
                           if (!QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) return;
                           // Qt deletes it.
                           auto* drag = new QDrag(window);
                           drag->setMimeData(new FileListMime(files));
                           drag->setPixmap(pixmap);
                           drag->setHotSpot(hotSpot);
                           // Whoever takes the files moves them: nothing is left to do here.
                           drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
                           if (self) emit self->ended();
                       });
}

}  // namespace nookwise
