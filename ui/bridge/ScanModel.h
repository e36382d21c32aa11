// The running scan, for every screen that shows its progress.
#pragma once

#include "app/AppStore.h"
#include "ui/bridge/ValueListModel.h"

#include <QObject>
#include <array>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class ScanModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// A scan that the user sees is running, or is about to begin.
    Q_PROPERTY(bool scanning READ scanning NOTIFY changed)
    /// There is no result yet.
    Q_PROPERTY(bool first READ first NOTIFY changed)
    Q_PROPERTY(QString step READ step NOTIFY changed)
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)
    /// "4,812 files".
    Q_PROPERTY(QString filesText READ filesText NOTIFY changed)
    /// The five steps of a scan: title, glyph, stage ("waiting", "now", "done"), fill (0 to 1),
    /// caption.
    Q_PROPERTY(QAbstractListModel* steps READ steps CONSTANT)

  public:
    explicit ScanModel(AppStore& store);

    bool scanning() const;
    bool first() const { return first_; }
    QString step() const;
    double fraction() const { return store_.progress.get().fraction; }
    QString filesText() const;
    QAbstractListModel* steps() { return &steps_; }

    Q_INVOKABLE void scanAgain();
    /// The window's content has appeared.
    Q_INVOKABLE void startFirstScan();

  signals:
    void changed();

  private:
    static constexpr std::size_t stepCount = 5;

    struct Step {
        QString title;
        QString icon;
        QString stage;
        double fill = 0;
        QString caption;

        friend bool operator==(const Step&, const Step&) = default;
    };

    void phaseChanged();
    void progressChanged();
    std::size_t currentStep(const ScanProgress& progress) const;
    Step describe(std::size_t step, std::size_t current, const ScanProgress& progress) const;

    AppStore& store_;
    bool first_ = true;
    /// Files seen when each folder had been read.
    std::array<int, stepCount> seenAtEnd_{};
    ValueListModel<Step> steps_;
    Subscription phase_;
    Subscription progress_;
};

}  // namespace nookwise
