// How far the reading of texts has come.
#pragma once

#include "app/AppStore.h"

#include <QObject>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class IndexingModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// Text is being read.
    Q_PROPERTY(bool running READ running NOTIFY changed)
    /// "Reading text in images and PDFs · 1,240 of 3,118".
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// 0 to 1.
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)

  public:
    explicit IndexingModel(AppStore& store)
        : store_(store), indexing_(store.indexing.observe([this] { emit changed(); })) {}

    bool running() const { return store_.indexing.get().has_value(); }
    QString text() const;
    double fraction() const;

  signals:
    void changed();

  private:
    AppStore& store_;
    Subscription indexing_;
};

}  // namespace nookwise
