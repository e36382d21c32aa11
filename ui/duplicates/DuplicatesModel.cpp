#include "ui/duplicates/DuplicatesModel.h"

#include "ui/bridge/ShownText.h"

namespace nookwise {

DuplicatesModel::DuplicatesModel(AppStore& store, const Clock& clock, const FileUrl& home,
                                 const PilesModel& piles)
    : store_(store),
      piles_(piles),
      rows_(store, clock, home),
      groups_(store.duplicates.observe([this] { rows_.cut(columns_); })) {
    connect(&piles, &PilesModel::changed, this, &DuplicatesModel::changed);
    rows_.cut(columns_);
}

QString DuplicatesModel::title() const {
    return shown(nookwise::title(PileKind::duplicates));
}

QString DuplicatesModel::subtitle() const {
    return shown(nookwise::subtitle(PileKind::duplicates));
}

QString DuplicatesModel::totalText() const {
    return shownBytes(piles_.figures(PileKind::duplicates).bytes);
}

QString DuplicatesModel::countText() const {
    const std::int64_t copies = piles_.duplicateCopies();
    const auto groups = static_cast<std::int64_t>(store_.duplicates.get().size());
    return shownCount(copies) +
           (copies == 1 ? QStringLiteral(" copy in ") : QStringLiteral(" copies in ")) +
           shownCount(groups) +
           (groups == 1 ? QStringLiteral(" group") : QStringLiteral(" groups"));
}

QString DuplicatesModel::comesBackText() const {
    return totalText() + QStringLiteral(" comes back");
}

void DuplicatesModel::setColumns(int columns) {
    if (columns == columns_) return;
    columns_ = columns;
    rows_.cut(columns_);
    emit columnsChanged();
}

}  // namespace nookwise
