#include "ui/activity/ActivityRows.h"

#include "model/ByteSum.h"
#include "ui/bridge/PileTexts.h"
#include "ui/bridge/ReplacedRows.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ShownTime.h"

#include <algorithm>

namespace nookwise {

namespace {

constexpr std::size_t namedFiles = 2;

QString factsOf(const ActivityEntry& entry) {
    const QString source = shownName(entry.source);
    const QString time = shownTime(entry.date);
    return source.isEmpty() ? time : source + QStringLiteral(" · ") + time;
}

QString namesOf(const ActivityEntry& entry) {
    QStringList names;
    for (std::size_t i = 0; i < std::min(entry.moves.size(), namedFiles); ++i)
        names += shownName(entry.moves[i].original.lastPathComponent());
    return names.join(QStringLiteral(", "));
}

QString moreOf(const ActivityEntry& entry) {
    if (entry.moves.size() <= namedFiles) return {};
    return QStringLiteral("and ") +
           shownCount(static_cast<std::int64_t>(entry.moves.size() - namedFiles)) +
           QStringLiteral(" more");
}

QString sizeOf(const ActivityEntry& entry) {
    std::int64_t sum = 0;
    for (const auto& move : entry.moves) sum = byteSum(sum, move.size);
    return shownBytes(sum);
}

/// The log knows piles by their titles.
QString pileOf(const ActivityEntry& entry) {
    if (entry.effectiveKind() != ActivityEntry::Kind::trash) return {};
    for (const PileKind kind : allPileKinds) {
        if (entry.source == title(kind)) return pileName(kind);
    }
    return {};
}

}  // namespace

ActivityRows::ActivityRows(const AppStore& store, const Clock& clock)
    : store_(store), clock_(clock) {
    entriesChanged();
}

int ActivityRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ActivityRows::data(const QModelIndex& index, int role) const {
    const ActivityEntry* shownEntry = index.isValid() ? entry(index.row()) : nullptr;
    if (shownEntry == nullptr) return {};
    const auto position = static_cast<std::size_t>(index.row());
    switch (role) {
        case day:
            return position > 0 && rows_[position].day == rows_[position - 1].day
                       ? QString()
                       : dayText(position);
        case last:
            return position + 1 == rows_.size() || rows_[position + 1].day != rows_[position].day;
        case title:
            return shownName(shownEntry->title);
        case facts:
            return factsOf(*shownEntry);
        case names:
            return namesOf(*shownEntry);
        case more:
            return moreOf(*shownEntry);
        case size:
            return sizeOf(*shownEntry);
        case restored:
            return shownEntry->restored;
        case pile:
            return pileOf(*shownEntry);
        case kind:
            return shown(rawValue(shownEntry->effectiveKind()));
        case spoken:
            return spokenText(*shownEntry, position);
        default:
            return {};
    }
}

QHash<int, QByteArray> ActivityRows::roleNames() const {
    return {{day, "day"},     {last, "last"}, {title, "title"},  {facts, "facts"},
            {names, "names"}, {more, "more"}, {size, "size"},    {restored, "restored"},
            {pile, "pile"},   {kind, "kind"}, {spoken, "spoken"}};
}

void ActivityRows::entriesChanged() {
    std::vector<Row> rows;
    rows.reserve(store_.activity.get().size());
    for (const ActivityEntry& entry : store_.activity.get())
        rows.push_back({entry.id, localTime(entry.date).date()});
    const ReplacedRows part = replacedRows(rows_, rows);
    const auto first = static_cast<int>(part.first);
    if (part.removed > 0) {
        const auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(part.first);
        beginRemoveRows({}, first, first + static_cast<int>(part.removed) - 1);
        rows_.erase(begin, begin + static_cast<std::ptrdiff_t>(part.removed));
        endRemoveRows();
    }
    if (part.inserted > 0) {
        beginInsertRows({}, first, first + static_cast<int>(part.inserted) - 1);
        rows_ = std::move(rows);
        endInsertRows();
    }
    dayChanged();
}

void ActivityRows::dayChanged() {
    if (!rows_.empty()) emit dataChanged(index(0), index(rowCount() - 1));
}

const ActivityEntry* ActivityRows::entry(int row) const {
    const auto& entries = store_.activity.get();
    const auto position = static_cast<std::size_t>(row);
    return row >= 0 && row < rowCount() && position < entries.size() ? &entries[position] : nullptr;
}

QString ActivityRows::dayText(std::size_t position) const {
    return shownDay(rows_[position].day, localTime(clock_.now()).date());
}

QString ActivityRows::spokenText(const ActivityEntry& entry, std::size_t position) const {
    QStringList parts{shownName(entry.title),
                      shownName(entry.source),
                      dayText(position) + u' ' + shownTime(entry.date),
                      sizeOf(entry),
                      namesOf(entry),
                      moreOf(entry)};
    if (entry.restored) parts += QStringLiteral("is back");
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

}  // namespace nookwise
