// The files that answer a question.
#pragma once

#include "model/FileItem.h"
#include "platform/Date.h"
#include "ui/bridge/ReplacedRows.h"

#include <QAbstractListModel>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace nookwise {

/// The date by which answers are ordered, if the file has any.
std::optional<Date> knownDate(const FileItem& file);

/// Roles: name, snippet (markup, empty where there is none), place, size, age, kindGroup,
/// kindLabel, picture, spoken (the snippet or the place).
class AskRows : public QAbstractListModel {
  public:
    /// The piece of a file's text to show around the words.
    using Snippet = std::function<std::optional<std::string>(
        const FileUrl& url, const std::vector<std::string>& words)>;

    AskRows(FileUrl home, Snippet makeSnippet)
        : home_(std::move(home)), makeSnippet_(std::move(makeSnippet)) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const std::vector<FileItem>& files() const { return files_; }
    /// There are more files than rows.
    bool areCut() const { return cut_; }
    /// Where a row of the results before is now, or the nearest one that stayed; -1 if none did.
    int rowAfterReplacement(int row) const;
    /// The first `most` files. Rows of the same files in the same place stay, so that a list that
    /// grows keeps its place.
    void setFiles(std::vector<FileItem> files, std::size_t most, std::vector<std::string> words,
                  Date now);

  private:
    enum Role {
        name = Qt::UserRole,
        snippet,
        place,
        size,
        age,
        kindGroup,
        kindLabel,
        picture,
        spoken
    };

    /// -1 for a row of the results before that is gone.
    int rowNow(std::size_t rowBefore) const;
    /// Made when a row is first looked at.
    const std::optional<std::string>& snippetOf(const FileItem& file) const;
    QString markedSnippet(const FileItem& file) const;
    QString spokenText(const FileItem& file) const;

    FileUrl home_;
    Snippet makeSnippet_;
    std::vector<FileItem> files_;
    /// Of the rows that were looked at since the files were set.
    mutable std::unordered_map<FileUrl, std::optional<std::string>> snippets_;
    bool cut_ = false;
    /// How the results came to be from those before, and the files that were in the replaced rows.
    ReplacedRows replaced_;
    std::vector<FileUrl> replacedFiles_;
    std::size_t countBefore_ = 0;
    /// The rows that took their place; made when it is looked into.
    mutable std::optional<std::unordered_map<FileUrl, int>> freshRows_;
    std::vector<std::string> words_;
    Date now_{};
};

}  // namespace nookwise
