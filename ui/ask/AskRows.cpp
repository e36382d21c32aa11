#include "ui/ask/AskRows.h"

#include "model/Fmt.h"
#include "ui/ask/MarkedText.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <algorithm>
#include <iterator>

namespace nookwise {

namespace {

bool sameFile(const FileItem& a, const FileItem& b) {
    return a.url == b.url;
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
    return parent.isValid() ? 0 : static_cast<int>(files_.size());
}

QVariant AskRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= files_.size()) return {};
    const FileItem& file = files_[row];
    switch (role) {
        case name:
            return shownName(file.url.lastPathComponent());
        case snippet:
            return markedSnippet(file);
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
            return spokenText(file);
        default:
            return {};
    }
}

QHash<int, QByteArray> AskRows::roleNames() const {
    return {{name, "name"},           {snippet, "snippet"}, {place, "place"},
            {size, "size"},           {age, "age"},         {kindGroup, "kindGroup"},
            {kindLabel, "kindLabel"}, {picture, "picture"}, {spoken, "spoken"}};
}

int AskRows::rowAfterReplacement(int row) const {
    const auto start = std::min(static_cast<std::size_t>(std::max(row, 0)), countBefore_);
    for (std::size_t next = start; next < countBefore_; ++next)
        if (const int now = rowNow(next); now >= 0) return now;
    for (std::size_t previous = start; previous-- > 0;)
        if (const int now = rowNow(previous); now >= 0) return now;
    return -1;
}

void AskRows::setFiles(std::vector<FileItem> files, std::size_t most,
                       std::vector<std::string> words, Date now) {
    cut_ = files.size() > most;
    if (cut_) files.resize(most);
    words_ = std::move(words);
    now_ = now;
    snippets_.clear();
    countBefore_ = files_.size();
    replaced_ = replacedRows(files_, files, sameFile);
    replacedFiles_.clear();
    freshRows_.reset();
    const auto [first, removed, inserted] = replaced_;
    const auto from = static_cast<int>(first);
    const auto gone = files_.begin() + distance(first);
    std::transform(gone, gone + distance(removed), std::back_inserter(replacedFiles_),
                   [](const FileItem& file) { return file.url; });
    if (removed > 0) {
        beginRemoveRows({}, from, from + static_cast<int>(removed) - 1);
        files_.erase(gone, gone + distance(removed));
        endRemoveRows();
    }
    const auto fresh = files.begin() + distance(first);
    const auto after = fresh + distance(inserted);
    if (inserted > 0) {
        beginInsertRows({}, from, from + static_cast<int>(inserted) - 1);
        files_.insert(files_.begin() + distance(first), std::make_move_iterator(fresh),
                      std::make_move_iterator(after));
        endInsertRows();
    }
    // The same files, of which something else may have changed.
    std::move(files.begin(), fresh, files_.begin());
    std::move(after, files.end(), files_.begin() + distance(first + inserted));
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1));
}

int AskRows::rowNow(std::size_t rowBefore) const {
    const auto [first, removed, inserted] = replaced_;
    if (rowBefore < first) return static_cast<int>(rowBefore);
    if (rowBefore >= first + removed) return static_cast<int>(rowBefore - removed + inserted);
    if (!freshRows_) {
        freshRows_.emplace();
        for (std::size_t row = first; row < first + inserted; ++row)
            freshRows_->emplace(files_[row].url, static_cast<int>(row));
    }
    const auto fresh = freshRows_->find(replacedFiles_[rowBefore - first]);
    return fresh == freshRows_->end() ? -1 : fresh->second;
}

const std::optional<std::string>& AskRows::snippetOf(const FileItem& file) const {
    const auto [known, isNew] = snippets_.try_emplace(file.url);
    if (isNew) known->second = makeSnippet_(file.url, words_);
    return known->second;
}

QString AskRows::markedSnippet(const FileItem& file) const {
    const auto& piece = snippetOf(file);
    if (!piece) return {};
    return markedText(beginning(*piece, longestSnippet), words_).markup;
}

QString AskRows::spokenText(const FileItem& file) const {
    const auto& piece = snippetOf(file);
    return piece ? shown(beginning(*piece, longestSnippet)) : spokenFolderOf(file.url, home_);
}

}  // namespace nookwise
