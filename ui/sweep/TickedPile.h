// The shown pile with what is ticked of it.
#pragma once

#include "app/AppStore.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace nookwise {

/// Reads the items from the store, where they stand, and keeps only sums. A file may be listed
/// twice in a pile; both rows then share their tick.
class TickedPile {
  public:
    explicit TickedPile(const AppStore& store) : store_(store) {}

    /// The pile's items or its kind changed.
    void reload();
    /// The ticks changed as a whole.
    void recount();
    /// One file's tick was turned. Returns the rows that list it.
    std::span<const int> turned(int row);

    int size() const { return size_; }
    bool empty() const { return size_ == 0; }
    /// The file of each row.
    std::vector<FileUrl> urls() const;
    /// Null beyond the end.
    const SweepItem* item(int row) const;
    bool ticked(int row) const;
    std::int64_t bytes() const { return bytes_; }
    int tickedCount() const { return tickedCount_; }
    std::int64_t tickedBytes() const { return tickedBytes_; }
    /// Rows by size, largest first, at most `count`.
    std::vector<int> largest(std::size_t count) const;

  private:
    std::span<const SweepItem> items() const;

    const AppStore& store_;
    int size_ = 0;
    std::int64_t bytes_ = 0;
    int tickedCount_ = 0;
    std::int64_t tickedBytes_ = 0;
    /// The rows of each file that is listed more than once.
    std::unordered_map<FileUrl, std::vector<int>> repeated_;
    int single_ = 0;
};

}  // namespace nookwise
