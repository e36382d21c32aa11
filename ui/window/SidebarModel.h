// The sections that the window can show, and which one it shows.
#pragma once

#include "ui/bridge/PilesModel.h"

#include <string_view>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

/// Roles: key, label, glyph, heading (of the group that begins here), shortcut, count, current.
class SidebarModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    /// The key of the shown section.
    Q_PROPERTY(QString section READ section NOTIFY sectionChanged)

  public:
    SidebarModel(AppStore& store, const PilesModel& piles);

    QAbstractListModel* rows() { return &rows_; }
    QString section() const;
    /// Does nothing when no section has that key.
    Q_INVOKABLE void open(const QString& key);
    Q_INVOKABLE void openRow(int row);

  signals:
    void sectionChanged();

  private:
    struct Entry {
        QString key;
        QString label;
        QString icon;
        QString heading;
        QString shortcut;
        QString count;
        bool current = false;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    void refresh();

    AppStore& store_;
    const PilesModel& piles_;
    ValueListModel<Entry> rows_;
    Subscription section_;
};

}  // namespace nookwise
