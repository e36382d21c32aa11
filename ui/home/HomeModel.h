// What Home says beside the piles' and the disk's figures.
#pragma once

#include "app/Platform.h"
#include "platform/Tasks.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/PilesModel.h"
#include "ui/bridge/ScanModel.h"

#include <memory>
#include <optional>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class HomeModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// Nothing could come back.
    Q_PROPERTY(bool clean READ clean NOTIFY changed)
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString sentence READ sentence NOTIFY changed)
    /// "checked 2 min. ago"; empty before the first result.
    Q_PROPERTY(QString checkedText READ checkedText NOTIFY changed)
    /// The piles that hold something, largest first: name, title, legend, size, and where its part
    /// of all piles begins and ends (from and to, 0 to 1).
    Q_PROPERTY(QAbstractListModel* blocks READ blocks CONSTANT)
    /// One sentence with the blocks' names and sizes.
    Q_PROPERTY(QString spokenBlocks READ spokenBlocks NOTIFY changed)
    /// The newest arrivals, at most four: name, place, age, kindGroup, kindLabel, picture.
    Q_PROPERTY(QAbstractListModel* justLanded READ justLanded CONSTANT)

  public:
    HomeModel(AppStore& store, const Platform& platform, PilesModel& piles, const ScanModel& scan);

    bool clean() const { return piles_.total() == 0; }
    QString headline() const;
    QString sentence() const;
    QString checkedText() const;
    QAbstractListModel* blocks() { return &blocks_; }
    QString spokenBlocks() const;
    QAbstractListModel* justLanded() { return &justLanded_; }

    Q_INVOKABLE void reviewPiles();

  signals:
    void changed();

  private:
    struct Block {
        PileFigures pile;
        double from = 0;
        double to = 0;

        friend bool operator==(const Block&, const Block&) = default;
    };
    struct Arrival {
        QString name;
        QString place;
        QString age;
        KindBadge kind;
        QString picture;

        friend bool operator==(const Arrival&, const Arrival&) = default;
    };

    void pilesChanged();
    void scanChanged();
    void arrivalsChanged();
    void keepAgesTrue();

    AppStore& store_;
    Platform platform_;
    PilesModel& piles_;
    const ScanModel& scan_;
    bool wasScanning_ = true;
    std::optional<Date> checked_;
    ValueListModel<Block> blocks_;
    ValueListModel<Arrival> justLanded_;
    Subscription arrivals_;
    std::unique_ptr<Tasks::Delay> nextMinute_;
};

}  // namespace nookwise
