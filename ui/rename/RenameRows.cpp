#include "ui/rename/RenameRows.h"

#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ReplacedRows.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace nookwise {

namespace {

bool sameFile(const RenameRow& a, const RenameRow& b) {
    return a.file.url == b.file.url;
}

/// Whether row by row the files are the same, some of them in places that are new to the list.
bool isOfSameFiles(const std::vector<RenameRow>& before, const std::vector<RenameRow>& after) {
    if (std::ranges::equal(before, after, sameFile)) return true;
    std::unordered_set<FileUrl> places;
    for (const auto& row : before) places.insert(row.file.url);
    return std::ranges::equal(before, after, [&](const RenameRow& a, const RenameRow& b) {
        auto moved = a.file;
        moved.url = b.file.url;
        return sameFile(a, b) || (!places.contains(b.file.url) && moved == b.file);
    });
}

QString noteOf(const RenameRow& row) {
    return row.note ? shown(*row.note) : QString();
}

QString spokenText(const RenameRow& row) {
    const QString name = shownName(row.file.url.lastPathComponent());
    QStringList parts{row.renames() ? name + QStringLiteral(" becomes ") + shownName(row.newName)
                                    : name};
    if (row.note)
        parts += noteOf(row);
    else if (!row.renames())
        parts += QStringLiteral("name kept");
    return parts.join(QStringLiteral(", "));
}

}  // namespace

int RenameRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(plan_.size());
}

QVariant RenameRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const RenameRow& row = plan_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case name:
            return shownName(row.file.url.lastPathComponent());
        case newName:
            return shownName(row.newName);
        case renames:
            return row.renames();
        case note:
            return noteOf(row);
        case sameName:
            return row.note == sameNameNote;
        case ticks:
            return ticked(index.row());
        case picture:
            return thumbnailSource(row.file);
        case kindGroup:
            return kindBadge(row.file.url).group;
        case kindLabel:
            return kindBadge(row.file.url).label;
        case spoken:
            return spokenText(row);
        default:
            return {};
    }
}

QHash<int, QByteArray> RenameRows::roleNames() const {
    return {{name, "name"},       {newName, "newName"},     {renames, "renames"},
            {note, "note"},       {sameName, "sameName"},   {ticks, "ticked"},
            {picture, "picture"}, {kindGroup, "kindGroup"}, {kindLabel, "kindLabel"},
            {spoken, "spoken"}};
}

void RenameRows::setPlan(std::vector<RenameRow> plan) {
    auto unticked = untickedOf(plan);
    const auto [first, removed, inserted] = replacedRows(plan_, plan, sameFile);
    // Files that only have other places stay where they are in the list.
    const auto more = static_cast<int>(inserted) - static_cast<int>(removed);
    const auto from = static_cast<int>(first + std::min(removed, inserted));
    if (more < 0) beginRemoveRows({}, from, from - more - 1);
    if (more > 0) beginInsertRows({}, from, from + more - 1);
    plan_ = std::move(plan);
    unticked_ = std::move(unticked);
    if (more < 0) endRemoveRows();
    if (more > 0) endInsertRows();
    recount();
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1));
}

bool RenameRows::ticked(int row) const {
    if (row < 0 || row >= rowCount()) return false;
    const auto position = static_cast<std::size_t>(row);
    return plan_[position].renames() && !unticked_[position];
}

void RenameRows::turn(int row) {
    if (row < 0 || row >= rowCount()) return;
    const auto position = static_cast<std::size_t>(row);
    if (!plan_[position].renames()) return;
    unticked_[position] = !unticked_[position];
    tickedCount_ += unticked_[position] ? -1 : 1;
    emit dataChanged(index(row), index(row), {ticks});
}

void RenameRows::tickAll() {
    setAllUnticked(false);
}

void RenameRows::tickNone() {
    setAllUnticked(true);
}

std::vector<RenameRow> RenameRows::tickedRows() const {
    std::vector<RenameRow> rows;
    for (int row = 0; row < rowCount(); ++row) {
        if (ticked(row)) rows.push_back(plan_[static_cast<std::size_t>(row)]);
    }
    return rows;
}

std::vector<bool> RenameRows::untickedOf(const std::vector<RenameRow>& plan) const {
    if (isOfSameFiles(plan_, plan)) return unticked_;
    std::unordered_set<FileUrl> files;
    for (std::size_t row = 0; row < plan_.size(); ++row) {
        if (unticked_[row]) files.insert(plan_[row].file.url);
    }
    std::vector<bool> unticked(plan.size());
    for (std::size_t row = 0; row < plan.size(); ++row)
        unticked[row] = files.contains(plan[row].file.url);
    return unticked;
}

void RenameRows::setAllUnticked(bool unticked) {
    // What keeps its name has no tick to take away.
    for (std::size_t row = 0; row < plan_.size(); ++row) {
        if (plan_[row].renames()) unticked_[row] = unticked;
    }
    recount();
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {ticks});
}

void RenameRows::recount() {
    renamingCount_ = static_cast<int>(std::ranges::count_if(plan_, &RenameRow::renames));
    tickedCount_ = 0;
    for (int row = 0; row < rowCount(); ++row) tickedCount_ += ticked(row) ? 1 : 0;
}

}  // namespace nookwise
