// The review of identical files.
#pragma once

#include "ui/bridge/PilesModel.h"
#include "ui/duplicates/DuplicateRows.h"

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class DuplicatesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(bool empty READ empty NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString subtitle READ subtitle CONSTANT)
    Q_PROPERTY(QString totalText READ totalText NOTIFY changed)
    /// "48 copies in 19 groups".
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QString comesBackText READ comesBackText NOTIFY changed)
    /// "Trash all extras (48 · 3.12 GB)".
    Q_PROPERTY(QString trashText READ trashText NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    /// How many copies stand side by side.
    Q_PROPERTY(int columns READ columns WRITE setColumns NOTIFY columnsChanged)

  public:
    DuplicatesModel(AppStore& store, const Clock& clock, const FileUrl& home,
                    const PilesModel& piles);

    bool empty() const { return store_.duplicates.get().empty(); }
    int count() const { return static_cast<int>(piles_.duplicateCopies()); }
    QString title() const;
    QString subtitle() const;
    QString totalText() const;
    QString countText() const;
    QString comesBackText() const;
    QString trashText() const;
    QAbstractListModel* rows() { return &rows_; }
    int columns() const { return columns_; }
    void setColumns(int columns);

    /// Keeps one of the copies in a line instead of the one that was kept.
    Q_INVOKABLE void keep(int row, int copy);
    /// Asks to trash what is not kept of the group that the line belongs to.
    Q_INVOKABLE void trashExtras(int row);
    /// Asks to trash what is not kept of all groups.
    Q_INVOKABLE void trashAllExtras();

  signals:
    void changed();
    void columnsChanged();

  private:
    AppStore& store_;
    const PilesModel& piles_;
    DuplicateRows rows_;
    int columns_ = 3;
    Subscription groups_;
};

}  // namespace nookwise
