// The rows of a pane.
#pragma once

#include "app/Pane.h"
#include "platform/Date.h"

#include <QAbstractListModel>
#include <vector>

namespace nookwise {

/// Roles: name, age, size (empty for a folder), folder, kindGroup, kindLabel, selected, spoken.
/// Texts are made when a row is drawn, so that the length of the folder costs nothing.
class PaneRows : public QAbstractListModel {
  public:
    explicit PaneRows(const Pane& pane) : pane_(pane) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The pane has other items. Rows of files that stay do so too, unless another folder is listed
    /// or files come and go in many places.
    void itemsChanged();
    /// The ages are told as of that moment.
    void setNow(Date now);
    void selectionChanged();

  private:
    enum Role { name = Qt::UserRole, age, size, folder, kindGroup, kindLabel, selected, spoken };

    const Pane::Item* item(int row) const;
    void replace(const std::vector<FileUrl>& urls);
    void remove(int first, int count);
    void insert(int first, int count);
    void tellAll(const QList<int>& roles);

    const Pane& pane_;
    Date now_{};
    FileUrl listed_;
    /// The file of each row, to tell what changed by.
    std::vector<FileUrl> urls_;
    int count_ = 0;
    /// Only in the midst of a change: the item of each row, or -1 for one that is about to go.
    std::vector<int> places_;
};

}  // namespace nookwise
