// The five piles with their figures, for every screen that lists them.
#pragma once

#include "app/AppStore.h"
#include "ui/bridge/ValueListModel.h"

#include <array>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

struct PileFigures {
    PileKind kind = PileKind::forgotten;
    std::int64_t bytes = 0;
    /// Items of the pile; of the duplicates, the copies beside the kept ones.
    std::int64_t count = 0;
    bool selected = false;

    friend bool operator==(const PileFigures&, const PileFigures&) = default;
};

/// Roles: name, title, label, size ("8.43 GB" or "nothing"), count, selected.
class PilesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

  public:
    explicit PilesModel(AppStore& store);

    QAbstractListModel* rows() { return &rows_; }
    std::int64_t total() const { return total_; }
    std::int64_t duplicateCopies() const { return figures(PileKind::duplicates).count; }
    const PileFigures& figures(PileKind kind) const;
    /// The piles that hold something, the most bytes first.
    std::vector<PileFigures> largestFirst() const;

    /// Shows the pile on its screen, ticked as it was found.
    Q_INVOKABLE void open(int row);
    void open(PileKind kind);

  signals:
    void changed();

  private:
    void refresh();
    void markSelected();
    PileKind shownPile() const;

    AppStore& store_;
    std::int64_t total_ = 0;
    ValueListModel<PileFigures> rows_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
