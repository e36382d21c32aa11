// The files that answer a question.
#pragma once

#include "platform/Date.h"
#include "search/Ask.h"

#include <QAbstractListModel>
#include <optional>
#include <string>
#include <vector>

namespace nookwise {

/// The date by which answers are ordered, if the file has any.
std::optional<Date> knownDate(const FileItem& file);

/// Roles: name, snippet (markup, empty where there is none), place, size, age, kindGroup,
/// kindLabel, picture, spoken (the snippet or the place).
class AskRows : public QAbstractListModel {
  public:
    explicit AskRows(FileUrl home) : home_(std::move(home)) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const std::vector<AskResult>& results() const { return results_; }
    /// The row of a file, or -1.
    int rowOf(const FileUrl& url) const;
    /// Rows of the same files in the same place stay, so that a list that grows keeps its place.
    void setResults(std::vector<AskResult> results, std::vector<std::string> words, Date now);

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

    QString markedSnippet(const AskResult& result) const;
    QString spokenText(const AskResult& result) const;

    FileUrl home_;
    std::vector<AskResult> results_;
    std::vector<std::string> words_;
    Date now_{};
};

}  // namespace nookwise
