// New names from the text inside, as they are proposed, ticked and given.
#pragma once

#include "app/AppStore.h"
#include "fileops/FirstLine.h"
#include "ui/rename/RenameRows.h"

#include <QObject>
#include <vector>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class RenameModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// There are files to rename.
    Q_PROPERTY(bool open READ open NOTIFY openChanged)
    // What the names are made of.
    Q_PROPERTY(bool useText READ useText WRITE setUseText NOTIFY planned)
    Q_PROPERTY(bool useDate READ useDate WRITE setUseDate NOTIFY planned)
    Q_PROPERTY(bool dashed READ dashed WRITE setDashed NOTIFY planned)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    /// Of all rows, of which those that keep their names are never ticked.
    Q_PROPERTY(Qt::CheckState tickState READ tickState NOTIFY ticksChanged)
    Q_PROPERTY(bool canTick READ canTick NOTIFY ticksChanged)
    /// "7 of 8".
    Q_PROPERTY(QString tickedText READ tickedText NOTIFY ticksChanged)
    /// "Rename 7 files".
    Q_PROPERTY(QString renameText READ renameText NOTIFY ticksChanged)
    Q_PROPERTY(bool canRename READ canRename NOTIFY ticksChanged)

  public:
    explicit RenameModel(AppStore& store);

    bool open() const { return isOpen_; }
    bool useText() const { return options_.useText; }
    bool useDate() const { return options_.useDate; }
    bool dashed() const { return options_.dashed; }
    void setUseText(bool use);
    void setUseDate(bool use);
    void setDashed(bool dashed);
    QAbstractListModel* rows() { return &rows_; }
    Qt::CheckState tickState() const;
    bool canTick() const { return rows_.renamingCount() > 0; }
    QString tickedText() const;
    QString renameText() const;
    bool canRename() const { return rows_.tickedCount() > 0; }

    Q_INVOKABLE void turn(int row);
    Q_INVOKABLE void tickAll();
    Q_INVOKABLE void tickNone();
    /// Ticks all, or none where no more can be ticked.
    Q_INVOKABLE void turnAll();
    Q_INVOKABLE void cancel();
    /// Gives the ticked files their new names and closes.
    Q_INVOKABLE void apply();

  signals:
    void openChanged();
    void planned();
    void ticksChanged();

  private:
    void filesChanged();
    void setOptions(const RenameOptions& options);
    void plan();

    AppStore& store_;
    RenameOptions options_;
    FirstLines lines_;
    RenameRows rows_;
    bool isOpen_ = false;
    /// What the renames change in the store is no news here.
    bool isApplying_ = false;
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
