#include "ui/duplicates/DuplicateRows.h"

#include "model/Fmt.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>

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

}  // namespace

int DuplicateRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant DuplicateRows::data(const QModelIndex& index, int role) const {
    const auto position = static_cast<std::size_t>(index.row());
    if (!index.isValid() || position >= lines_.size()) return {};
    const Line& line = lines_[position];
    if (line.group >= store_.duplicates.get().size()) return {};
    const DuplicateGroup& group = store_.duplicates.get()[line.group];
    if (group.files.empty()) return {};
    switch (role) {
        case heading:
            return line.copies == 0;
        case last:
            return position + 1 == lines_.size() || lines_[position + 1].copies == 0;
        case title:
            return titleOf(group);
        case caption:
            return captionOf(group);
        case size:
            return shownBytes(wastedBytes(group));
        case perLine:
            return static_cast<int>(std::min(columns_, group.files.size()));
        case copies:
            return copiesOf(group, line);
        default:
            return {};
    }
}

QHash<int, QByteArray> DuplicateRows::roleNames() const {
    return {{heading, "heading"}, {last, "last"},       {title, "title"},  {caption, "caption"},
            {size, "size"},       {perLine, "perLine"}, {copies, "copies"}};
}

void DuplicateRows::cut(int columns) {
    columns_ = static_cast<std::size_t>(std::max(columns, 1));
    beginResetModel();
    lines_.clear();
    const auto& groups = store_.duplicates.get();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        const std::size_t count = groups[group].files.size();
        if (count == 0) continue;
        lines_.push_back({group, 0, 0});
        for (std::size_t first = 0; first < count; first += columns_) {
            lines_.push_back({group, first, std::min(columns_, count - first)});
        }
    }
    endResetModel();
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
            {"spoken", spokenFolderOf(file.url, home_) +
                           (kept ? QStringLiteral(", kept") : QStringLiteral(", extra"))},
        });
    }
    return tiles;
}

}  // namespace nookwise
