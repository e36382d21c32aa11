#include "ui/ask/AskRows.h"

#include "model/Fmt.h"
#include "ui/ask/MarkedText.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ReplacedRows.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <algorithm>

namespace nookwise {

namespace {

bool sameFile(const AskResult& a, const AskResult& b) {
    return a.file.url == b.file.url;
}

/// Snippets are short, unless a letter of theirs has thousands of accents.
constexpr std::size_t longestSnippet = 400;

std::ptrdiff_t distance(std::size_t rows) {
    return static_cast<std::ptrdiff_t>(rows);
}

}  // namespace

std::optional<Date> knownDate(const FileItem& file) {
    if (file.lastUsed) return file.lastUsed;
    return file.added ? file.added : file.modified;
}

int AskRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(results_.size());
}

QVariant AskRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= results_.size()) return {};
    const AskResult& result = results_[row];
    const FileItem& file = result.file;
    switch (role) {
        case name:
            return shownName(file.url.lastPathComponent());
        case snippet:
            return markedSnippet(result);
        case place:
            return shownFolderOf(file.url, home_);
        case size:
            return shownBytes(file.size);
        case age:
            return shown(Fmt::ago(knownDate(file), now_));
        case kindGroup:
            return kindBadge(file.url).group;
        case kindLabel:
            return kindBadge(file.url).label;
        case picture:
            return thumbnailSource(file);
        case spoken:
            return spokenText(result);
        default:
            return {};
    }
}

QHash<int, QByteArray> AskRows::roleNames() const {
    return {{name, "name"},           {snippet, "snippet"}, {place, "place"},
            {size, "size"},           {age, "age"},         {kindGroup, "kindGroup"},
            {kindLabel, "kindLabel"}, {picture, "picture"}, {spoken, "spoken"}};
}

int AskRows::rowOf(const FileUrl& url) const {
    const auto result = std::ranges::find(results_, url, [](const auto& r) { return r.file.url; });
    return result == results_.end() ? -1 : static_cast<int>(result - results_.begin());
}

void AskRows::setResults(std::vector<AskResult> results, std::vector<std::string> words, Date now) {
    words_ = std::move(words);
    now_ = now;
    const auto [first, removed, inserted] = replacedRows(results_, results, sameFile);
    const auto from = static_cast<int>(first);
    if (removed > 0) {
        beginRemoveRows({}, from, from + static_cast<int>(removed) - 1);
        const auto gone = results_.begin() + distance(first);
        results_.erase(gone, gone + distance(removed));
        endRemoveRows();
    }
    if (inserted > 0) {
        beginInsertRows({}, from, from + static_cast<int>(inserted) - 1);
        const auto fresh = results.begin() + distance(first);
        results_.insert(results_.begin() + distance(first), fresh, fresh + distance(inserted));
        endInsertRows();
    }
    results_ = std::move(results);
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1));
}

QString AskRows::markedSnippet(const AskResult& result) const {
    if (!result.snippet) return {};
    return markedText(beginning(*result.snippet, longestSnippet), words_).markup;
}

QString AskRows::spokenText(const AskResult& result) const {
    return result.snippet ? shown(beginning(*result.snippet, longestSnippet))
                          : spokenFolderOf(result.file.url, home_);
}

}  // namespace nookwise
