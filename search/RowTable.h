// Finds rows by the hash of their file's place.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

namespace nookwise {

/// Open addressing without removal: it is made anew with the rows.
class RowTable {
  public:
    /// For at most so many rows.
    explicit RowTable(std::size_t count = 0) : entries_(std::bit_ceil(count + count / 4 + 1)) {}

    static std::uint32_t hashOf(std::size_t hash) {
        return static_cast<std::uint32_t>(hash ^ hash >> 32U);
    }

    void add(std::uint32_t hash, std::uint32_t row) {
        auto slot = hash & mask();
        while (entries_[slot].row != none) slot = (slot + 1) & mask();
        entries_[slot] = {hash, row};
    }

    /// Calls `visit` with the rows of that hash, others' rows among them, until it returns false.
    template <typename Visit>
    void visit(std::uint32_t hash, Visit visit) const {
        for (auto slot = hash & mask(); entries_[slot].row != none; slot = (slot + 1) & mask()) {
            if (entries_[slot].hash == hash && !visit(entries_[slot].row)) return;
        }
    }

    /// Calls `visit` with the hash and number of each row.
    template <typename Visit>
    void forEach(Visit visit) const {
        for (const auto& entry : entries_) {
            if (entry.row != none) visit(entry.hash, entry.row);
        }
    }

    std::size_t memory() const { return entries_.capacity() * sizeof(Entry); }

  private:
    static constexpr auto none = std::numeric_limits<std::uint32_t>::max();

    struct Entry {
        std::uint32_t hash = 0;
        std::uint32_t row = none;
    };

    std::size_t mask() const { return entries_.size() - 1; }

    std::vector<Entry> entries_;
};

}  // namespace nookwise
