// How far a move or copy is that takes long.
#pragma once

#include "app/AppStore.h"

#include <QObject>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class TransferModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(bool running READ running NOTIFY changed)
    /// The user has ended it, and it goes on for the moment that takes.
    Q_PROPERTY(bool stopping READ stopping NOTIFY changed)
    /// 0 to 1; -1 while nobody knows.
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)
    /// "2 of 14 · 1.2 GB of 3.4 GB", or what of it is known.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// For a screen reader, in steps that are worth speaking of: "2 of 14, 30 per cent".
    Q_PROPERTY(QString spokenText READ spokenText NOTIFY changed)

  public:
    explicit TransferModel(AppStore& store);

    bool running() const { return store_.transferProgress.get().has_value(); }
    bool stopping() const { return stopping_ && running(); }
    double fraction() const;
    QString text() const;
    QString spokenText() const;

    Q_INVOKABLE void cancel();

  signals:
    void changed();

  private:
    void progressChanged();
    QString countText() const;
    QString bytesText() const;

    AppStore& store_;
    bool stopping_ = false;
    Subscription progress_;
};

}  // namespace nookwise
