// What was done to files, and what it freed.
#pragma once

#include "app/Platform.h"
#include "platform/Tasks.h"
#include "ui/activity/ActivityRows.h"

#include <memory>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class ActivityModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(bool empty READ empty NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    /// Of this month: "18.64 GB".
    Q_PROPERTY(QString freedText READ freedText NOTIFY changed)
    Q_PROPERTY(bool freedNothing READ freedNothing NOTIFY changed)
    /// One value for each day of this month up to today: its part of the best day, 0 to 1.
    Q_PROPERTY(QList<double> days READ days NOTIFY changed)
    /// "1 Oct".
    Q_PROPERTY(QString firstDayText READ firstDayText NOTIFY changed)
    /// One sentence with what each day freed.
    Q_PROPERTY(QString spokenDays READ spokenDays NOTIFY changed)

  public:
    ActivityModel(AppStore& store, const Platform& platform);

    bool empty() const { return rows_.rowCount() == 0; }
    QAbstractListModel* rows() { return &rows_; }
    QString freedText() const;
    bool freedNothing() const { return store_.freedThisMonth() == 0; }
    QList<double> days() const;
    QString firstDayText() const;
    QString spokenDays() const;

    /// Does nothing for an entry that is back already.
    Q_INVOKABLE void putBack(int row);

  signals:
    void changed();

  private:
    void refresh();
    void watchTheDay();

    AppStore& store_;
    Platform platform_;
    ActivityRows rows_;
    QDate firstDay_;
    QDate today_;
    std::vector<std::int64_t> freed_;
    Subscription entries_;
    std::unique_ptr<Tasks::Delay> nextMinute_;
};

}  // namespace nookwise
