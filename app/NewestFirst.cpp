#include "app/NewestFirst.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace nookwise {
namespace {

constexpr int digitBits = 8;
constexpr std::size_t digits = std::size_t{1} << digitBits;
constexpr int keyBits = 64;
/// Below it, counting digits costs more than comparing.
constexpr std::size_t fewEntries = 500;

std::uint64_t keyOf(Date date) {
    // The sum makes one zero of the two that a double has.
    const auto bits = std::bit_cast<std::uint64_t>(date.time_since_epoch().count() + 0.0);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    // Doubles are ordered as their bits are once negative ones are flipped over.
    const auto ascending = (bits & sign) != 0 ? ~bits : bits | sign;
    return ~ascending;
}

}  // namespace

void NewestFirst::add(Date date, std::size_t position) {
    entries_.push_back({keyOf(date), static_cast<std::uint32_t>(position)});
}

void NewestFirst::sort() {
    if (entries_.size() < fewEntries) {
        std::ranges::stable_sort(entries_, {}, &Entry::key);
        return;
    }
    std::vector<Entry> sorted(entries_.size());
    for (int shift = 0; shift < keyBits; shift += digitBits) {
        const auto digit = [shift](const Entry& entry) {
            return entry.key >> shift & (digits - 1);
        };
        std::array<std::size_t, digits> starts{};
        for (const auto& entry : entries_) ++starts[digit(entry)];
        // Most dates share their upper digits.
        if (starts[digit(entries_.front())] == entries_.size()) continue;
        std::size_t start = 0;
        for (auto& count : starts) start += std::exchange(count, start);
        for (const auto& entry : entries_) sorted[starts[digit(entry)]++] = entry;
        entries_.swap(sorted);
    }
}

std::vector<FileItem> NewestFirst::list(std::span<const FileItem> files) && {
    sort();
    std::vector<FileItem> sorted;
    sorted.reserve(entries_.size());
    for (const auto& entry : entries_) sorted.push_back(files[entry.position]);
    return sorted;
}

}  // namespace nookwise
