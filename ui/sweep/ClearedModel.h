// What is said when the shown pile has just been emptied, and where to go on.
#pragma once

#include "ui/bridge/PilesModel.h"

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class ClearedModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// The shown pile has just been emptied.
    Q_PROPERTY(bool cleared READ cleared NOTIFY changed)
    /// What came back: "8.43 GB".
    Q_PROPERTY(QString size READ size NOTIFY changed)
    /// The rest of the sentence.
    Q_PROPERTY(QString tail READ tail NOTIFY changed)
    /// The title of the pile to go on with; empty when every pile is.
    Q_PROPERTY(QString nextTitle READ nextTitle NOTIFY changed)
    /// The piles that hold something, largest first: name, title, size, count, countText.
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

  public:
    ClearedModel(AppStore& store, PilesModel& piles);

    bool cleared() const;
    QString size() const;
    QString tail() const;
    QString nextTitle() const;
    QAbstractListModel* rows() { return &rows_; }

    Q_INVOKABLE void open(int row);
    Q_INVOKABLE void openHome();
    Q_INVOKABLE void openActivity();

  signals:
    void changed();

  private:
    void refresh();

    AppStore& store_;
    PilesModel& piles_;
    ValueListModel<PileFigures> rows_;
    Subscription justCleared_;
    Subscription selectedPile_;
};

}  // namespace nookwise
