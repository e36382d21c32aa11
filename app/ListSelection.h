// Selecting rows of a folder's listing by mouse and by keyboard.
#pragma once

#include "fileops/FolderListing.h"

#include <cstddef>
#include <optional>
#include <unordered_set>
#include <vector>

namespace nookwise {

/// What becomes of the selection when a row is clicked or reached by a key.
enum class SelectionMode {
    /// This row alone: a plain click or arrow.
    replace,
    /// This row is selected or no longer is: Ctrl and click, Ctrl and Space.
    toggle,
    /// From the anchor to this row, and nothing else: Shift and click, Shift and arrow.
    extend,
    /// The same range, added to what is selected: Ctrl, Shift and click.
    add,
    /// Stays as it is: Ctrl and arrow.
    keep,
};

enum class RowStep { previous, next, pageUp, pageDown, first, last };

/// Where the keyboard is in a list and where ranges begin. Rows are remembered by their files, so
/// that both stay with theirs when the folder is listed anew. Rows are counted from 0.
class ListSelection {
  public:
    using Items = std::vector<FolderItem>;
    using Selected = std::unordered_set<FileUrl>;

    /// The selection after `row` was clicked or reached. A row that does not exist changes nothing.
    Selected select(const Items& items, std::size_t row, SelectionMode mode, Selected selected);

    /// Every row. The keyboard stays where it is.
    static Selected selectAll(const Items& items);

    /// The row of the keyboard. Where its file is no longer listed, the row that took its place.
    /// None before any row was reached and in an empty list.
    std::optional<std::size_t> currentRow(const Items& items) const;

    /// The row that a step leads to: the first or last one when there is no current row. None in an
    /// empty list. `page` is the number of rows in sight.
    std::optional<std::size_t> rowAfter(const Items& items, RowStep step, std::size_t page) const;

    /// Forgets both rows, as for another folder.
    void clear() { *this = {}; }

  private:
    struct Row {
        FileUrl url;
        std::size_t index = 0;
    };

    std::optional<Row> anchor_;
    std::optional<Row> current_;
};

}  // namespace nookwise
