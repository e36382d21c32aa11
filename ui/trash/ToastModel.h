// The message at the foot of the window, and what can be done about it.
#pragma once

#include "app/AppStore.h"

#include <QObject>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class ToastModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(bool shown READ isShown NOTIFY changed)
    /// Stays while the toast goes away.
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)
    Q_PROPERTY(bool canShowInTrash READ canShowInTrash NOTIFY changed)
    /// It tells of work that is still going on.
    Q_PROPERTY(bool moving READ moving NOTIFY changed)

  public:
    explicit ToastModel(AppStore& store);

    bool isShown() const { return store_.toast.get().has_value(); }
    QString message() const { return message_; }
    bool canUndo() const { return isShown() && store_.toast.get()->entryID; }
    bool canShowInTrash() const;
    bool moving() const;

    Q_INVOKABLE void undo();
    Q_INVOKABLE void showInTrash();
    Q_INVOKABLE void close();
    /// Undoes the newest action, whatever the toast tells of.
    Q_INVOKABLE void undoLast();

  signals:
    void changed();

  private:
    void toastChanged();

    AppStore& store_;
    QString message_;
    Subscription toast_;
    Subscription transferring_;
};

}  // namespace nookwise
