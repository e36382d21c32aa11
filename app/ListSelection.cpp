#include "app/ListSelection.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

/// The row of `url`, looked for first where it was.
std::optional<std::size_t> findRow(const ListSelection::Items& items, const FileUrl& url,
                                   std::size_t before) {
    if (before < items.size() && items[before].url == url) return before;
    const auto found = std::ranges::find(items, url, &FolderItem::url);
    if (found == items.end()) return std::nullopt;
    return static_cast<std::size_t>(found - items.begin());
}

void addRange(ListSelection::Selected& selected, const ListSelection::Items& items,
              std::size_t from, std::size_t to) {
    const auto [first, last] = std::minmax(from, to);
    selected.reserve(selected.size() + last - first + 1);
    for (auto row = first; row <= last; ++row) selected.insert(items[row].url);
}

}  // namespace

ListSelection::Selected ListSelection::select(const Items& items, std::size_t row,
                                              SelectionMode mode, Selected selected) {
    if (row >= items.size()) return selected;
    const Row reached{items[row].url, row};
    current_ = reached;
    if (mode == SelectionMode::keep) return selected;
    const bool isRange = mode == SelectionMode::extend || mode == SelectionMode::add;
    if (!isRange || !anchor_) anchor_ = reached;
    if (mode == SelectionMode::toggle) {
        if (selected.erase(reached.url) == 0) selected.insert(reached.url);
        return selected;
    }
    if (mode != SelectionMode::add) selected.clear();
    // An anchor that is gone leaves its place to the row that is there now.
    const auto from = findRow(items, anchor_->url, anchor_->index)
                          .value_or(std::min(anchor_->index, items.size() - 1));
    addRange(selected, items, isRange ? from : row, row);
    return selected;
}

ListSelection::Selected ListSelection::selectAll(const Items& items) {
    Selected all;
    if (!items.empty()) addRange(all, items, 0, items.size() - 1);
    return all;
}

std::optional<std::size_t> ListSelection::currentRow(const Items& items) const {
    if (!current_ || items.empty()) return std::nullopt;
    return findRow(items, current_->url, current_->index)
        .value_or(std::min(current_->index, items.size() - 1));
}

std::optional<std::size_t> ListSelection::rowAfter(const Items& items, RowStep step,
                                                   std::size_t page) const {
    if (items.empty()) return std::nullopt;
    const auto last = items.size() - 1;
    const bool isUpward = step == RowStep::previous || step == RowStep::pageUp;
    if (step == RowStep::first) return 0;
    if (step == RowStep::last) return last;
    const auto current = currentRow(items);
    if (!current) return isUpward ? last : 0;
    const bool isPage = step == RowStep::pageUp || step == RowStep::pageDown;
    const auto rows = isPage ? std::max<std::size_t>(page, 1) : 1;
    if (isUpward) return *current - std::min(*current, rows);
    return *current + std::min(last - *current, rows);
}

}  // namespace nookwise
