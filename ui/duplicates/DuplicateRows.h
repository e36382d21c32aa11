// Groups of copies, cut into the lines of a list.
#pragma once

#include "app/AppStore.h"
#include "platform/Clock.h"

#include <QAbstractListModel>

namespace nookwise {

/// Each group is a heading followed by lines of up to `columns` copies, so that a group of
/// thousands costs no more to draw than the lines in view. Roles: heading (bool), last (the group's
/// last line), title, and of a heading caption, size, trashText; of a line perLine (the group's
/// copies that fit side by side) and copies, a list of maps with place, name, age, kept, kindGroup,
/// kindLabel, picture, spoken.
class DuplicateRows : public QAbstractListModel {
  public:
    DuplicateRows(const AppStore& store, const Clock& clock, FileUrl home)
        : store_(store), clock_(clock), home_(std::move(home)) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Puts other numbers of copies side by side.
    void setColumns(int columns);
    /// The groups changed. Lines of groups that stay are left alone, so that the list stays where
    /// it is and keeps its focus.
    void groupsChanged();

    /// Null when there is no such line, or no such copy in it. Valid until the groups change.
    const DuplicateGroup* group(int row) const;
    const FileItem* copy(int row, int column) const;

  private:
    enum Role { heading = Qt::UserRole, last, title, caption, size, trashText, perLine, copies };

    struct Line {
        /// Position in the store's groups.
        std::size_t group = 0;
        /// By which the group is known again. Its id is not its alone.
        FileUrl groupsFirstFile;
        std::size_t groupsCopies = 0;
        std::size_t firstCopy = 0;
        /// 0 for a heading.
        std::size_t copies = 0;

        bool sameAs(const Line& other) const;
    };

    std::vector<Line> cut() const;
    QVariantList copiesOf(const DuplicateGroup& group, const Line& line) const;

    const AppStore& store_;
    const Clock& clock_;
    FileUrl home_;
    std::vector<Line> lines_;
    std::size_t columns_ = 1;
};

}  // namespace nookwise
