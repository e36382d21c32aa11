#include "ui/duplicates/DuplicatesModel.h"

#include "ui/bridge/ShownText.h"

namespace nookwise {

DuplicatesModel::DuplicatesModel(AppStore& store, const Clock& clock, const FileUrl& home,
                                 const PilesModel& piles)
    : store_(store),
      piles_(piles),
      rows_(store, clock, home),
      groups_(store.duplicates.observe([this] { rows_.groupsChanged(); })) {
    connect(&piles, &PilesModel::changed, this, &DuplicatesModel::changed);
    rows_.setColumns(columns_);
}

QString DuplicatesModel::title() const {
    return shown(nookwise::title(PileKind::duplicates));
}

QString DuplicatesModel::subtitle() const {
    return QStringLiteral("Byte-for-byte the same. Click any copy to keep it instead.");
}

QString DuplicatesModel::totalText() const {
    return shownBytes(piles_.figures(PileKind::duplicates).bytes);
}

QString DuplicatesModel::countText() const {
    const auto groups = static_cast<std::int64_t>(store_.duplicates.get().size());
    return shownCopies(piles_.duplicateCopies()) + QStringLiteral(" in ") + shownCount(groups) +
           (groups == 1 ? QStringLiteral(" group") : QStringLiteral(" groups"));
}

QString DuplicatesModel::comesBackText() const {
    return totalText() + QStringLiteral(" comes back");
}

QString DuplicatesModel::trashText() const {
    return QStringLiteral("Trash all extras (") + shownCount(piles_.duplicateCopies()) +
           QStringLiteral(" · ") + totalText() + u')';
}

void DuplicatesModel::keep(int row, int copy) {
    const FileItem* file = rows_.copy(row, copy);
    if (file != nullptr) store_.setKeep(rows_.group(row)->id, file->url);
}

void DuplicatesModel::trashExtras(int row) {
    if (const DuplicateGroup* group = rows_.group(row)) store_.trashDuplicates({*group});
}

void DuplicatesModel::trashAllExtras() {
    store_.trashDuplicates(store_.duplicates.get());
}

void DuplicatesModel::setColumns(int columns) {
    if (columns == columns_) return;
    columns_ = columns;
    rows_.setColumns(columns_);
    emit columnsChanged();
}

}  // namespace nookwise
