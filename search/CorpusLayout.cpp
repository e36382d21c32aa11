// How the corpus follows the list of files: what is known of those that stay is taken over.
#include "platform/Text.h"
#include "search/SearchCorpus.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace nookwise {
namespace {

constexpr auto none = std::numeric_limits<std::uint32_t>::max();

double dateOf(const FileItem& file) {
    for (const auto& date : {file.lastUsed, file.added, file.modified}) {
        if (date) return date->time_since_epoch().count();
    }
    return distantPast.time_since_epoch().count();
}

/// Smaller for later dates, the same for dates that are no numbers.
std::uint64_t ageOf(const FileItem& file) {
    const auto date = dateOf(file);
    const auto number =
        std::isnan(date) ? std::copysign(std::numeric_limits<double>::quiet_NaN(), date) : date;
    // The sum makes one zero of the two that a double has.
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    // Doubles are ordered as their bits are once negative ones are flipped over.
    return ~((bits & sign) != 0 ? ~bits : bits | sign);
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) >= 0; });
}

std::uint32_t hashOf(const FileUrl& url) {
    return RowTable::hashOf(std::hash<FileUrl>{}(url));
}

}  // namespace

void SearchCorpus::filesChanged() {
    // Numbers are never given back one by one; here there are far more than there can be uses.
    constexpr std::size_t few = 1'000;
    const auto numbered = extensions_.texts().size() + sources_.texts().size();
    if (numbered > 2 * values_.files.size() + few) forgetNumbers();
    layOut(newOrder(oldRows()));
}

void SearchCorpus::forgetNumbers() {
    urls_.clear();
    rows_.clear();
    table_ = RowTable();
    inMemory_.clear();
    sorted_ = 0;
    extensions_ = NumberedTexts();
    sources_ = NumberedTexts();
}

std::uint32_t SearchCorpus::numberOfFile(const FileUrl& url) const {
    auto number = none;
    table_.visit(hashOf(url), [&](std::uint32_t row) {
        const auto file = rows_[row].file;
        if (urls_[file] == url) number = file;
        return number == none;
    });
    return number;
}

std::vector<std::uint32_t> SearchCorpus::oldRows() const {
    std::vector<std::uint32_t> rowOfNumber(urls_.size());
    for (std::uint32_t row = 0; row < rows_.size(); ++row) rowOfNumber[rows_[row].file] = row;
    std::vector<std::uint32_t> result(values_.files.size(), none);
    // Most files stand behind the one that they stood behind before.
    std::size_t next = 0;
    for (std::size_t i = 0; i < result.size() && !urls_.empty(); ++i) {
        const auto& url = values_.files[i].url;
        const bool stands = next < urls_.size() && urls_[next] == url;
        const auto number = stands ? static_cast<std::uint32_t>(next) : numberOfFile(url);
        if (number == none) continue;
        result[i] = std::exchange(rowOfNumber[number], none);
        next = number + std::size_t{1};
    }
    return result;
}

std::vector<SearchCorpus::Place> SearchCorpus::newOrder(
    const std::vector<std::uint32_t>& oldRows) const {
    // Those of the same date as before are in order already.
    std::vector<std::uint32_t> fileOfRow(rows_.size(), none);
    std::vector<Place> others;
    std::size_t leastNumber = 0;
    for (std::uint32_t file = 0; file < oldRows.size(); ++file) {
        const auto old = oldRows[file];
        const auto age = ageOf(values_.files[file]);
        const bool keepsOrder =
            old != none && rows_[old].age == age && rows_[old].file >= leastNumber;
        if (!keepsOrder) {
            others.push_back({age, file, old});
            continue;
        }
        leastNumber = rows_[old].file;
        fileOfRow[old] = file;
    }
    const auto isBefore = [](const Place& a, const Place& b) {
        return a.age != b.age ? a.age < b.age : a.file < b.file;
    };
    std::ranges::sort(others, isBefore);
    std::vector<Place> order;
    order.reserve(oldRows.size());
    auto other = others.begin();
    for (std::uint32_t row = 0; row < fileOfRow.size(); ++row) {
        if (fileOfRow[row] == none) continue;
        const Place place{rows_[row].age, fileOfRow[row], row};
        while (other != others.end() && isBefore(*other, place)) order.push_back(*other++);
        order.push_back(place);
    }
    order.insert(order.end(), other, others.end());
    return order;
}

void SearchCorpus::layOut(const std::vector<Place>& order) {
    const auto oldNames = std::exchange(names_, {});
    auto oldRows = std::exchange(rows_, {});
    std::vector<std::size_t> oldBegins;
    oldBegins.reserve(oldRows.size());
    for (std::size_t begin = 0; const auto& row : oldRows) {
        oldBegins.push_back(begin);
        begin += row.nameSize;
    }
    blockBegins_.clear();
    rows_.reserve(order.size());
    names_.reserve(oldNames.size());
    std::string lower;
    for (const auto& place : order) {
        if (rows_.size() % rowsInBlock == 0) blockBegins_.push_back(names_.size());
        if (place.oldRow == none) {
            addNew(place, lower);
            continue;
        }
        auto& row = rows_.emplace_back(std::move(oldRows[place.oldRow]));
        row.age = place.age;
        row.file = place.file;
        names_.append(oldNames, oldBegins[place.oldRow], row.nameSize);
    }
    names_.shrink_to_fit();
    urls_.clear();
    urls_.shrink_to_fit();
    urls_.reserve(values_.files.size());
    for (const auto& file : values_.files) urls_.push_back(file.url);
    renumber(order, oldRows.size());
}

void SearchCorpus::addNew(const Place& place, std::string& lower) {
    const auto& url = values_.files[place.file].url;
    lowercase(url.lastPathComponent(), lower);
    names_ += lower;
    const auto text = values_.lowerTexts.find(url);
    rows_.push_back({.lowerText = text == values_.lowerTexts.end() ? SharedBytes() : text->second,
                     .age = place.age,
                     .nameSize = static_cast<std::uint32_t>(lower.size()),
                     .file = place.file,
                     .extension = extensionNumber(url, lower),
                     .source = sourceNumber(url)});
}

std::uint32_t SearchCorpus::extensionNumber(const FileUrl& url, std::string_view lowerName) {
    // The lower case of some letters depends on what comes before them.
    const auto extension = url.pathExtension();
    if (isAscii(extension)) return extensions_.add(extensionOf(lowerName));
    return extensions_.add(lowercased(extension));
}

void SearchCorpus::renumber(const std::vector<Place>& order, std::size_t oldCount) {
    std::vector<std::uint32_t> newRows(oldCount, none);
    const auto before = std::exchange(table_, RowTable(order.size()));
    const auto inMemoryBefore = std::exchange(inMemory_, {});
    inMemory_.reserve(order.size());
    for (std::uint32_t row = 0; row < order.size(); ++row) {
        if (order[row].oldRow != none) newRows[order[row].oldRow] = row;
    }
    const auto sortedBefore = std::exchange(sorted_, 0);
    for (std::size_t i = 0; i < inMemoryBefore.size(); ++i) {
        auto place = inMemoryBefore[i];
        place.row = newRows[place.row];
        if (place.row == none) continue;
        inMemory_.push_back(place);
        if (i < sortedBefore) ++sorted_;
    }
    for (std::uint32_t row = 0; row < order.size(); ++row) {
        if (order[row].oldRow != none) continue;
        addPlace(row);
        table_.add(hashOf(values_.files[order[row].file].url), row);
    }
    before.forEach([&](std::uint32_t hash, std::uint32_t row) {
        if (newRows[row] != none) table_.add(hash, newRows[row]);
    });
    if (inMemory_.size() > 2 * sorted_) sortInMemory();
}

}  // namespace nookwise
