#include "ui/sweep/TickedPile.h"

#include "model/ByteSum.h"

#include <algorithm>
#include <numeric>

namespace nookwise {

void TickedPile::reload() {
    const auto all = items();
    size_ = static_cast<int>(all.size());
    bytes_ = 0;
    repeated_.clear();
    std::unordered_map<FileUrl, int> firstRows;
    firstRows.reserve(all.size());
    for (int row = 0; row < size_; ++row) {
        const FileItem& file = all[static_cast<std::size_t>(row)].file;
        bytes_ = byteSum(bytes_, file.size);
        const auto [first, isNew] = firstRows.try_emplace(file.url, row);
        if (isNew) continue;
        auto& rows = repeated_[file.url];
        if (rows.empty()) rows.push_back(first->second);
        rows.push_back(row);
    }
    recount();
}

void TickedPile::recount() {
    tickedCount_ = 0;
    tickedBytes_ = 0;
    for (int row = 0; row < size_; ++row) {
        if (!ticked(row)) continue;
        ++tickedCount_;
        tickedBytes_ = byteSum(tickedBytes_, item(row)->file.size);
    }
}

std::span<const int> TickedPile::turned(int row) {
    const SweepItem* turnedItem = item(row);
    if (turnedItem == nullptr) return {};
    single_ = row;
    const auto repeated = repeated_.find(turnedItem->file.url);
    const auto rows = repeated == repeated_.end() ? std::span<const int>(&single_, 1)
                                                  : std::span<const int>(repeated->second);
    const int direction = ticked(row) ? 1 : -1;
    for (const int each : rows) {
        tickedCount_ += direction;
        tickedBytes_ = byteSum(tickedBytes_, direction * item(each)->file.size);
    }
    return rows;
}

std::vector<FileUrl> TickedPile::urls() const {
    std::vector<FileUrl> urls;
    urls.reserve(items().size());
    for (const SweepItem& item : items()) urls.push_back(item.file.url);
    return urls;
}

const SweepItem* TickedPile::item(int row) const {
    const auto all = items();
    const auto position = static_cast<std::size_t>(row);
    return row >= 0 && position < all.size() ? &all[position] : nullptr;
}

bool TickedPile::ticked(int row) const {
    const SweepItem* candidate = item(row);
    return candidate != nullptr && store_.checked.get().contains(candidate->file.url);
}

std::vector<int> TickedPile::largest(std::size_t count) const {
    std::vector<int> rows(static_cast<std::size_t>(size_));
    std::iota(rows.begin(), rows.end(), 0);
    const auto end = rows.begin() + static_cast<std::ptrdiff_t>(std::min(count, rows.size()));
    std::partial_sort(rows.begin(), end, rows.end(), [this](int a, int b) {
        const std::int64_t sizeA = item(a)->file.size;
        const std::int64_t sizeB = item(b)->file.size;
        return sizeA != sizeB ? sizeA > sizeB : a < b;
    });
    rows.erase(end, rows.end());
    return rows;
}

std::span<const SweepItem> TickedPile::items() const {
    const auto pile = store_.piles.get().find(store_.selectedPile.get());
    if (pile == store_.piles.get().end()) return {};
    return pile->second;
}

}  // namespace nookwise
