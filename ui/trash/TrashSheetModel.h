// The question whether files may go to the Trash.
#pragma once

#include "app/AppStore.h"

#include <QObject>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class TrashSheetModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// A request waits for an answer. The texts are empty without one.
    Q_PROPERTY(bool open READ open NOTIFY changed)
    /// The pile that the files come from, by its stored name; empty when they come from elsewhere.
    Q_PROPERTY(QString pile READ pile NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(QString switchText READ switchText NOTIFY changed)
    /// Off at first for each request.
    Q_PROPERTY(bool dontAskAgain READ dontAskAgain WRITE setDontAskAgain NOTIFY changed)

  public:
    explicit TrashSheetModel(AppStore& store);

    bool open() const { return request() != nullptr; }
    QString pile() const;
    int count() const;
    QString title() const;
    QString detail() const;
    QString switchText() const;
    bool dontAskAgain() const { return dontAskAgain_; }
    void setDontAskAgain(bool dontAskAgain);

    Q_INVOKABLE void confirm();
    Q_INVOKABLE void cancel();

  signals:
    void changed();

  private:
    const TrashRequest* request() const;
    void requestChanged();

    AppStore& store_;
    bool dontAskAgain_ = false;
    Subscription request_;
};

}  // namespace nookwise
