// The review of one pile.
#pragma once

#include "ui/bridge/PilesModel.h"
#include "ui/sweep/SweepRows.h"
#include "ui/sweep/TickedPile.h"

#include <optional>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class SweepModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(QString pile READ pile NOTIFY pileChanged)
    Q_PROPERTY(QString title READ title NOTIFY pileChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY pileChanged)
    Q_PROPERTY(bool empty READ empty NOTIFY pileChanged)
    Q_PROPERTY(int count READ count NOTIFY pileChanged)
    Q_PROPERTY(QString totalText READ totalText NOTIFY pileChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY pileChanged)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY pileChanged)
    /// "Large files · 21.62 GB", the largest pile; empty when every pile is.
    Q_PROPERTY(QString largestText READ largestText NOTIFY largestChanged)
    Q_PROPERTY(Qt::CheckState tickState READ tickState NOTIFY ticksChanged)
    Q_PROPERTY(QString tickedText READ tickedText NOTIFY ticksChanged)
    Q_PROPERTY(QString comesBackText READ comesBackText NOTIFY ticksChanged)
    /// Empty when nothing stays.
    Q_PROPERTY(QString staysText READ staysText NOTIFY ticksChanged)
    /// "Trash selected (118 · 7.96 GB)"; "Trash selected (0)" while nothing can be trashed.
    Q_PROPERTY(QString trashText READ trashText NOTIFY ticksChanged)
    /// Something is ticked, and no scan runs.
    Q_PROPERTY(bool canTrash READ canTrash NOTIFY ticksChanged)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    /// The largest files: row, name (without extension), where its part of the strip begins and
    /// ends (from and to, 0 to 1), ticked.
    Q_PROPERTY(QAbstractListModel* strip READ strip CONSTANT)
    /// The strip's part of the pile, 0 to 1.
    Q_PROPERTY(double stripShare READ stripShare NOTIFY pileChanged)
    /// How many files the strip leaves out, "+117"; empty when there are none.
    Q_PROPERTY(QString stripRestText READ stripRestText NOTIFY pileChanged)
    /// One sentence with the names and sizes of the strip.
    Q_PROPERTY(QString spokenStrip READ spokenStrip NOTIFY pileChanged)

  public:
    SweepModel(AppStore& store, const FileUrl& home, PilesModel& piles);

    QString pile() const;
    QString title() const;
    QString subtitle() const;
    bool empty() const { return ticked_.empty(); }
    int count() const { return ticked_.size(); }
    QString totalText() const;
    QString countText() const;
    QString emptyText() const;
    QString largestText() const;
    Qt::CheckState tickState() const;
    QString tickedText() const;
    QString comesBackText() const;
    QString staysText() const;
    QString trashText() const;
    bool canTrash() const;
    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* strip() { return &strip_; }
    double stripShare() const;
    QString stripRestText() const;
    QString spokenStrip() const;

    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectNone();
    /// Asks to trash what is ticked.
    Q_INVOKABLE void trashTicked();
    Q_INVOKABLE int rowAfterReplacement(int row) const { return rows_.rowAfterReplacement(row); }
    /// Shows the largest pile.
    Q_INVOKABLE void openLargest();

  signals:
    void pileChanged();
    void ticksChanged();
    void largestChanged();

  private:
    struct Block {
        int row = 0;
        QString name;
        double from = 0;
        double to = 0;
        bool ticked = false;

        friend bool operator==(const Block&, const Block&) = default;
    };

    void showPile();
    void reload();
    void pileReloaded();
    void checkedChanged();
    void refreshStrip();
    void markStrip();
    int stripRest() const { return ticked_.size() - strip_.rowCount(); }

    AppStore& store_;
    PilesModel& piles_;
    TickedPile ticked_;
    SweepRows rows_;
    ValueListModel<Block> strip_;
    /// The row whose tick is being turned by this model.
    std::optional<int> turning_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
