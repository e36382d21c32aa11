#include "ui/split/PaneDropArea.h"

#include "ui/split/FileListMime.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nookwise {

namespace {

bool isOurs(const QDropEvent& event) {
    return qobject_cast<const FileListMime*>(event.mimeData()) != nullptr;
}

/// Ours are moved unless a key asks for a copy. Others' are copied, which takes nothing away from
/// them, unless they offer a move alone or Shift asks for it.
PaneDropArea::Offer askedBy(const QDropEvent& event) {
    const auto keys = event.modifiers();
    if (isOurs(event)) {
        const bool isCopy = keys.testFlag(Qt::AltModifier) || keys.testFlag(Qt::ControlModifier);
        return isCopy ? PaneDropArea::Offer::Copy : PaneDropArea::Offer::Move;
    }
    const bool canMove = event.possibleActions().testFlag(Qt::MoveAction);
    const bool canCopy = event.possibleActions().testFlag(Qt::CopyAction);
    if (canMove && (!canCopy || keys.testFlag(Qt::ShiftModifier))) return PaneDropArea::Offer::Move;
    return canCopy ? PaneDropArea::Offer::Copy : PaneDropArea::Offer::None;
}

Qt::DropAction actionOf(PaneDropArea::Offer offer) {
    switch (offer) {
        case PaneDropArea::Offer::None:
            return Qt::IgnoreAction;
        case PaneDropArea::Offer::Move:
            return Qt::MoveAction;
        case PaneDropArea::Offer::Copy:
            return Qt::CopyAction;
    }
    return Qt::IgnoreAction;
}

}  // namespace

PaneDropArea::PaneDropArea(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemAcceptsDrops);
}

int PaneDropArea::folderRowAt(double y) const {
    if (isForeign_ || y < listTop_ || y >= listBottom_) return -1;
    const auto& folder = pane_->dropFolder(-1);
    const auto isHere = [&](const auto& file) { return file.parentPath() == folder.path(); };
    if (!std::ranges::all_of(files_, isHere)) return -1;
    const int row = static_cast<int>(std::floor((y - rowsTop_) / rowHeight_));
    return pane_->isFolder(row) ? row : -1;
}

void PaneDropArea::show(const Now& now, double pointerY) {
    if (std::exchange(pointerY_, pointerY) != pointerY) emit pointerYChanged();
    if (std::exchange(now_, now) != now) emit offerChanged();
}

void PaneDropArea::consider(QDropEvent& event) {
    asked_ = askedBy(event);
    isForeign_ = !isOurs(event);
    const double y = event.position().y();
    show(offerAt(y), y);
    event.setDropAction(actionOf(now_.offer));
    event.setAccepted(now_.offer != Offer::None);
}

PaneDropArea::Now PaneDropArea::offerAt(double y) const {
    if (asked_ == Offer::None) return {};
    Now now{.offer = asked_, .row = folderRowAt(y), .foreign = isForeign_};
    now.folder = pane_->dropFolder(now.row);
    return pane_->takes(files_, now.folder) ? now : Now{};
}

void PaneDropArea::setRowsTop(double top) {
    rowsTop_ = top;
    // Other rows come to lie under a pointer that rests.
    if (pane_ != nullptr && !files_.empty() && pointerY_ >= 0) show(offerAt(pointerY_), pointerY_);
}

void PaneDropArea::dragEnterEvent(QDragEnterEvent* event) {
    files_ = filesIn(*event->mimeData());
    consider(*event);
    // To be told of every move from here on.
    event->setAccepted(!files_.empty());
}

void PaneDropArea::dragMoveEvent(QDragMoveEvent* event) {
    consider(*event);
}

void PaneDropArea::dragLeaveEvent(QDragLeaveEvent*) {
    files_.clear();
    show({}, -1);
}

void PaneDropArea::dropEvent(QDropEvent* event) {
    const Now shown = now_;
    const auto files = std::exchange(files_, {});
    show({}, -1);
    // Rows that came or went under the pointer meanwhile make it another folder than was shown.
    const bool isAsShown = pane_->dropFolder(shown.row) == shown.folder;
    const bool isTaken = isAsShown && pane_->takes(files, shown.folder);
    event->setAccepted(isTaken);
    if (!isTaken) return;
    // The files are moved or copied here and later on: whoever they come from must not take them
    // away meanwhile.
    const bool canBeCopied = event->possibleActions().testFlag(Qt::CopyAction);
    event->setDropAction(canBeCopied ? Qt::CopyAction : Qt::IgnoreAction);
    pane_->drop(files, shown.folder,
                shown.offer == Offer::Copy ? TransferKind::copy : TransferKind::move);
    emit dropped();
}

}  // namespace nookwise
