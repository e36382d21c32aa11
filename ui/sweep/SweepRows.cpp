#include "ui/sweep/SweepRows.h"

#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>
#include <optional>

namespace nookwise {

namespace {

/// More rows that go at once are too many to watch.
constexpr std::size_t watchable = 30;

/// The rows that went, in order; none when anything else changed too.
std::optional<std::vector<int>> goneRows(const std::vector<FileUrl>& before,
                                         const std::vector<FileUrl>& after) {
    std::vector<int> gone;
    auto next = after.begin();
    for (std::size_t row = 0; row < before.size(); ++row) {
        if (next != after.end() && *next == before[row]) {
            ++next;
        } else {
            gone.push_back(static_cast<int>(row));
        }
    }
    if (next != after.end()) return std::nullopt;
    return gone;
}

}  // namespace

int SweepRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(urls_.size());
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

void SweepRows::pileReplaced() {
    gone_.clear();
    replace(pile_.urls());
}

void SweepRows::pileChanged() {
    auto urls = pile_.urls();
    const auto gone = goneRows(urls_, urls);
    gone_.clear();
    if (gone && gone->size() <= watchable) {
        take(*gone);
        // What is said of the others may be new.
        if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    if (gone) gone_ = *gone;
    replace(std::move(urls));
}

int SweepRows::rowAfterReplacement(int row) const {
    const auto before = std::lower_bound(gone_.begin(), gone_.end(), row) - gone_.begin();
    return row - static_cast<int>(before);
}

void SweepRows::replace(std::vector<FileUrl> urls) {
    beginResetModel();
    urls_ = std::move(urls);
    endResetModel();
}

void SweepRows::take(const std::vector<int>& rows) {
    // From the first on, so that the rows before each cut are already those of the pile.
    int taken = 0;
    for (std::size_t from = 0; from < rows.size();) {
        std::size_t to = from + 1;
        while (to < rows.size() && rows[to] == rows[to - 1] + 1) ++to;
        const int first = rows[from] - taken;
        const int count = static_cast<int>(to - from);
        beginRemoveRows({}, first, first + count - 1);
        urls_.erase(urls_.begin() + first, urls_.begin() + first + count);
        endRemoveRows();
        taken += count;
        from = to;
    }
}

void SweepRows::ticksChanged(std::span<const int> rows) {
    for (const int row : rows) emit dataChanged(index(row), index(row), {ticked});
}

void SweepRows::allTicksChanged() {
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {ticked});
}

QString SweepRows::spokenText(const SweepItem& item) const {
    return QStringList{shownName(item.file.url.lastPathComponent()), shownBytes(item.file.size),
                       shown(item.reason), spokenFolderOf(item.file.url, home_)}
        .join(QStringLiteral(", "));
}

}  // namespace nookwise
