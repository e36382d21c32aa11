// The rows of the shown pile.
#pragma once

#include "ui/sweep/TickedPile.h"

#include <QAbstractListModel>
#include <span>

namespace nookwise {

/// Roles: name, reason, place, size, kindGroup, kindLabel, ticked, spoken. Texts are made when a
/// row is drawn, so that the length of the pile costs nothing.
class SweepRows : public QAbstractListModel {
  public:
    SweepRows(const TickedPile& pile, FileUrl home) : pile_(pile), home_(std::move(home)) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Another pile is shown.
    void pileReplaced();
    /// The shown pile has other items. A few rows that went are taken out one run after the other,
    /// so that their going can be seen; more than that are replaced as a whole.
    void pileChanged();
    /// After a replacement: where a row of before it is now; if it went, the row after it.
    int rowAfterReplacement(int row) const;
    void ticksChanged(std::span<const int> rows);
    void allTicksChanged();

  private:
    enum Role { name = Qt::UserRole, reason, place, size, kindGroup, kindLabel, ticked, spoken };

    void replace(std::vector<FileUrl> urls);
    void take(const std::vector<int>& rows);
    QString spokenText(const SweepItem& item) const;

    const TickedPile& pile_;
    FileUrl home_;
    /// The file of each row, to tell what changed by.
    std::vector<FileUrl> urls_;
    /// The rows of before that went with a replacement, in order.
    std::vector<int> gone_;
};

}  // namespace nookwise
