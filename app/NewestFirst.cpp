#include "app/NewestFirst.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace nookwise {
namespace {

// Together they tell dates apart that are some milliseconds of a year, or some hours of all time.
constexpr int digitBits = 11;
constexpr int passes = 3;
constexpr std::size_t digits = std::size_t{1} << digitBits;
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
    if (entries_.size() >= fewEntries) sortByUpperBits();
    // What the upper bits leave in disorder lies within milliseconds of each other.
    if (!std::ranges::is_sorted(entries_, {}, &Entry::key))
        std::ranges::stable_sort(entries_, {}, &Entry::key);
}

void NewestFirst::sortByUpperBits() {
    std::uint64_t differing = 0;
    for (const auto& entry : entries_) differing |= entry.key ^ entries_.front().key;
    const int sortedBits = digitBits * passes;
    const int lowest = std::max(static_cast<int>(std::bit_width(differing)) - sortedBits, 0);
    std::vector<Entry> sorted(entries_.size());
    for (int shift = lowest; shift < lowest + sortedBits; shift += digitBits) {
        const auto digit = [shift](const Entry& entry) {
            return entry.key >> shift & (digits - 1);
        };
        std::array<std::uint32_t, digits> starts{};
        for (const auto& entry : entries_) ++starts[digit(entry)];
        std::uint32_t start = 0;
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
