#include "ui/sweep/SweepRows.h"

#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ShownText.h"

namespace nookwise {

int SweepRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

QVariant SweepRows::data(const QModelIndex& index, int role) const {
    const SweepItem* item = pile_.item(index.row());
    if (item == nullptr) return {};
    switch (role) {
        case name:
            return shownName(item->file.url.lastPathComponent());
        case reason:
            return shown(item->reason);
        case place:
            return shownFolderOf(item->file.url, home_);
        case size:
            return shownBytes(item->file.size);
        case kindGroup:
            return kindBadge(item->file.url).group;
        case kindLabel:
            return kindBadge(item->file.url).label;
        case ticked:
            return pile_.ticked(index.row());
        case spoken:
            return spokenText(*item);
        default:
            return {};
    }
}

QHash<int, QByteArray> SweepRows::roleNames() const {
    return {{name, "name"},     {reason, "reason"},       {place, "place"},
            {size, "size"},     {kindGroup, "kindGroup"}, {kindLabel, "kindLabel"},
            {ticked, "ticked"}, {spoken, "spoken"}};
}

void SweepRows::pileChanged() {
    beginResetModel();
    count_ = pile_.size();
    endResetModel();
}

void SweepRows::ticksChanged(std::span<const int> rows) {
    for (const int row : rows) emit dataChanged(index(row), index(row), {ticked});
}

void SweepRows::allTicksChanged() {
    if (count_ > 0) emit dataChanged(index(0), index(count_ - 1), {ticked});
}

QString SweepRows::spokenText(const SweepItem& item) const {
    return QStringList{shownName(item.file.url.lastPathComponent()), shownBytes(item.file.size),
                       shown(item.reason), spokenFolderOf(item.file.url, home_)}
        .join(QStringLiteral(", "));
}

}  // namespace nookwise
