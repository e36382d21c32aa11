#include "ui/trash/ToastModel.h"

#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

ToastModel::ToastModel(AppStore& store)
    : store_(store),
      toast_(store.toast.observe([this] { toastChanged(); })),
      transferring_(store.transferring.observe([this] { emit changed(); })) {
    toastChanged();
}

bool ToastModel::canShowInTrash() const {
    if (!canUndo()) return false;
    const auto& entries = store_.activity.get();
    const auto entry = std::ranges::find(entries, *store_.toast.get()->entryID, &ActivityEntry::id);
    return entry != entries.end() && entry->effectiveKind() == ActivityEntry::Kind::trash;
}

bool ToastModel::moving() const {
    return isShown() && !canUndo() && store_.transferring.get();
}

void ToastModel::undo() {
    store_.undoFromToast();
}

void ToastModel::showInTrash() {
    if (isShown()) store_.showInTrash(store_.toast.get()->entryID);
}

void ToastModel::close() {
    store_.closeToast();
}

void ToastModel::undoLast() {
    store_.undoLast();
}

void ToastModel::toastChanged() {
    if (isShown()) message_ = nookwise::shown(store_.toast.get()->message);
    emit changed();
}

}  // namespace nookwise
