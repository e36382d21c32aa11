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

    void pileChanged();
    void ticksChanged(std::span<const int> rows);
    void allTicksChanged();

  private:
    enum Role { name = Qt::UserRole, reason, place, size, kindGroup, kindLabel, ticked, spoken };

    QString spokenText(const SweepItem& item) const;

    const TickedPile& pile_;
    FileUrl home_;
    int count_ = 0;
};

}  // namespace nookwise
