#include "ui/duplicates/DuplicateRows.h"

#include "model/Fmt.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ReplacedRows.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <algorithm>
#include <functional>

namespace nookwise {

namespace {

QString titleOf(const DuplicateGroup& group) {
    const FileItem* kept = group.keptFile();
    const FileItem& file = kept == nullptr ? group.files.front() : *kept;
    return shownName(file.url.lastPathComponent());
}

QString captionOf(const DuplicateGroup& group) {
    const auto count = static_cast<std::int64_t>(group.files.size());
    return shownCount(count) + QStringLiteral(" copies, ") + shownBytes(group.files.front().size) +
           QStringLiteral(" each");
}

QString trashTextOf(const DuplicateGroup& group) {
    const auto extras = std::ranges::count_if(
        group.files, [&](const FileItem& file) { return file.url != group.keep; });
    return QStringLiteral("Trash ") + shownCount(extras) +
           (extras == 1 ? QStringLiteral(" extra") : QStringLiteral(" extras"));
}

}  // namespace

bool DuplicateRows::Line::sameAs(const Line& other) const {
    return firstCopy == other.firstCopy && copies == other.copies &&
           groupsCopies == other.groupsCopies && groupsFirstFile == other.groupsFirstFile;
}

int DuplicateRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant DuplicateRows::data(const QModelIndex& index, int role) const {
    const DuplicateGroup* shownGroup = index.isValid() ? group(index.row()) : nullptr;
    if (shownGroup == nullptr) return {};
    const auto position = static_cast<std::size_t>(index.row());
    const Line& line = lines_[position];
    switch (role) {
        case heading:
            return line.copies == 0;
        case last:
            return position + 1 == lines_.size() || lines_[position + 1].copies == 0;
        case title:
            return titleOf(*shownGroup);
        case caption:
            return captionOf(*shownGroup);
        case size:
            return shownBytes(wastedBytes(*shownGroup));
        case trashText:
            return trashTextOf(*shownGroup);
        case perLine:
            return static_cast<int>(std::min(columns_, shownGroup->files.size()));
        case copies:
            return copiesOf(*shownGroup, line);
        default:
            return {};
    }
}

QHash<int, QByteArray> DuplicateRows::roleNames() const {
    return {{heading, "heading"}, {last, "last"},    {title, "title"},
            {caption, "caption"}, {size, "size"},    {trashText, "trashText"},
            {perLine, "perLine"}, {copies, "copies"}};
}

void DuplicateRows::setColumns(int columns) {
    columns_ = static_cast<std::size_t>(std::max(columns, 1));
    beginResetModel();
    lines_ = cut();
    endResetModel();
}

void DuplicateRows::groupsChanged() {
    std::vector<Line> lines = cut();
    const ReplacedRows part = replacedRows(lines_, lines, std::mem_fn(&Line::sameAs));
    if (part.removed > 0) {
        std::vector<Line> staying = lines;
        const auto come = staying.begin() + static_cast<std::ptrdiff_t>(part.first);
        staying.erase(come, come + static_cast<std::ptrdiff_t>(part.inserted));
        const auto first = static_cast<int>(part.first);
        beginRemoveRows({}, first, first + static_cast<int>(part.removed) - 1);
        lines_ = std::move(staying);
        endRemoveRows();
    }
    if (part.inserted > 0) {
        const auto first = static_cast<int>(part.first);
        beginInsertRows({}, first, first + static_cast<int>(part.inserted) - 1);
        lines_ = std::move(lines);
        endInsertRows();
    } else {
        // The same lines of groups that may stand elsewhere now.
        lines_ = std::move(lines);
    }
    if (!lines_.empty()) emit dataChanged(index(0), index(rowCount() - 1));
}

const DuplicateGroup* DuplicateRows::group(int row) const {
    if (row < 0 || row >= rowCount()) return nullptr;
    const auto& groups = store_.duplicates.get();
    const std::size_t position = lines_[static_cast<std::size_t>(row)].group;
    return position < groups.size() && !groups[position].files.empty() ? &groups[position]
                                                                       : nullptr;
}

const FileItem* DuplicateRows::copy(int row, int column) const {
    const DuplicateGroup* holder = group(row);
    if (holder == nullptr || column < 0) return nullptr;
    const Line& line = lines_[static_cast<std::size_t>(row)];
    const std::size_t position = line.firstCopy + static_cast<std::size_t>(column);
    const bool inLine = static_cast<std::size_t>(column) < line.copies;
    return inLine && position < holder->files.size() ? &holder->files[position] : nullptr;
}

std::vector<DuplicateRows::Line> DuplicateRows::cut() const {
    std::vector<Line> lines;
    const auto& groups = store_.duplicates.get();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        const auto& files = groups[group].files;
        if (files.empty()) continue;
        lines.push_back({group, files.front().url, files.size(), 0, 0});
        for (std::size_t first = 0; first < files.size(); first += columns_) {
            lines.push_back({group, files.front().url, files.size(), first,
                             std::min(columns_, files.size() - first)});
        }
    }
    return lines;
}

QVariantList DuplicateRows::copiesOf(const DuplicateGroup& group, const Line& line) const {
    QVariantList tiles;
    const std::size_t end = std::min(line.firstCopy + line.copies, group.files.size());
    for (std::size_t copy = line.firstCopy; copy < end; ++copy) {
        const FileItem& file = group.files[copy];
        const bool kept = file.url == group.keep;
        const KindBadge kind = kindBadge(file.url);
        tiles.append(QVariantMap{
            {"place", shownFolderOf(file.url, home_)},
            {"name", shownName(file.url.lastPathComponent())},
            {"age", shown(Fmt::ago(file.added ? file.added : file.modified, clock_.now()))},
            {"kept", kept},
            {"kindGroup", kind.group},
            {"kindLabel", kind.label},
            {"picture", thumbnailSource(file)},
            {"spoken", spokenFolderOf(file.url, home_) +
                           (kept ? QStringLiteral(", kept") : QStringLiteral(", extra"))},
        });
    }
    return tiles;
}

}  // namespace nookwise
