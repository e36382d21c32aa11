// The proposed names with their ticks.
#pragma once

#include "fileops/RenamePlan.h"

#include <QAbstractListModel>
#include <vector>

namespace nookwise {

/// Roles: name, newName, renames, note (empty where there is none), sameName, ticked, picture,
/// kindGroup, kindLabel, spoken. A row that renames its file is ticked until the user unticks it,
/// and the other rows never are.
class RenameRows : public QAbstractListModel {
  public:
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// What the user unticked stays unticked for as long as the file is among the rows, wherever it
    /// was moved meanwhile.
    void setPlan(std::vector<RenameRow> plan);

    bool ticked(int row) const;
    void turn(int row);
    void tickAll();
    void tickNone();
    int tickedCount() const { return tickedCount_; }
    /// How many rows can be ticked.
    int renamingCount() const { return renamingCount_; }
    std::vector<RenameRow> tickedRows() const;

  private:
    enum Role {
        name = Qt::UserRole,
        newName,
        renames,
        note,
        sameName,
        ticks,
        picture,
        kindGroup,
        kindLabel,
        spoken
    };

    std::vector<bool> untickedOf(const std::vector<RenameRow>& plan) const;
    void setAllUnticked(bool unticked);
    void recount();

    std::vector<RenameRow> plan_;
    /// Row by row what the user unticked.
    std::vector<bool> unticked_;
    int tickedCount_ = 0;
    int renamingCount_ = 0;
};

}  // namespace nookwise
