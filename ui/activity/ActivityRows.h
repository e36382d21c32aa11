// The recorded changes as the rows of a list.
#pragma once

#include "app/AppStore.h"
#include "platform/Clock.h"

#include <QAbstractListModel>
#include <QDate>

namespace nookwise {

/// Newest first. Texts are made for the rows in view only. Roles: day (the heading of the day that
/// begins with the entry, else empty), last (of its day), title, facts ("Forgotten downloads ·
/// 14:32"), names (of the first files), more ("and 116 more", or empty), size, restored, pile (that
/// the files came from, or empty), kind (trash, move, copy or rename), spoken.
class ActivityRows : public QAbstractListModel {
  public:
    ActivityRows(const AppStore& store, const Clock& clock);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Rows of entries that stay are left alone, so that the list stays where it is and keeps its
    /// focus.
    void entriesChanged();
    /// Another day has come.
    void dayChanged();

    /// Null when there is no such row. Valid until the entries change.
    const ActivityEntry* entry(int row) const;

  private:
    enum Role {
        day = Qt::UserRole,
        last,
        title,
        facts,
        names,
        more,
        size,
        restored,
        pile,
        kind,
        spoken
    };

    struct Row {
        Uuid id;
        QDate day;

        friend bool operator==(const Row&, const Row&) = default;
    };

    QString dayText(std::size_t position) const;
    QString spokenText(const ActivityEntry& entry, std::size_t position) const;

    const AppStore& store_;
    const Clock& clock_;
    std::vector<Row> rows_;
};

}  // namespace nookwise
