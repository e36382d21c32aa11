// How far a call is that holds up the window.
#pragma once

#include "app/AppStore.h"

#include <QObject>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class BusyModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(bool busy READ busy NOTIFY changed)
    /// 0 to 1.
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)
    /// "120 of 4,812".
    Q_PROPERTY(QString countText READ countText NOTIFY changed)

  public:
    explicit BusyModel(AppStore& store);

    bool busy() const { return store_.busy.get().has_value(); }
    double fraction() const;
    QString countText() const;

  signals:
    void changed();

  private:
    AppStore& store_;
    Subscription busy_;
};

}  // namespace nookwise
