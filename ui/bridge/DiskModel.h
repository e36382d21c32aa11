// The start-up volume: what is used, what could come back, what is free.
#pragma once

#include "ui/bridge/PilesModel.h"

#include <QObject>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class DiskModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// The volume's figures could be read.
    Q_PROPERTY(bool known READ known NOTIFY changed)
    Q_PROPERTY(QString freeText READ freeText NOTIFY changed)
    Q_PROPERTY(QString totalText READ totalText NOTIFY changed)
    /// What is used and would stay used.
    Q_PROPERTY(QString restText READ restText NOTIFY changed)
    Q_PROPERTY(QString comesBackText READ comesBackText NOTIFY changed)
    /// Parts of the volume, 0 to 1. What could come back is never more than what is used.
    Q_PROPERTY(double restFraction READ restFraction NOTIFY changed)
    Q_PROPERTY(double comesBackFraction READ comesBackFraction NOTIFY changed)

  public:
    DiskModel(AppStore& store, const PilesModel& piles);

    bool known() const { return store_.totalBytes.get() > 0; }
    QString freeText() const;
    QString totalText() const;
    QString restText() const;
    QString comesBackText() const;
    double restFraction() const;
    double comesBackFraction() const;

  signals:
    void changed();

  private:
    std::int64_t usedBytes() const;
    std::int64_t comesBackBytes() const;
    double fraction(std::int64_t bytes) const;

    AppStore& store_;
    const PilesModel& piles_;
    Subscription free_;
    Subscription total_;
};

}  // namespace nookwise
