#include "search/SearchCorpus.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace nookwise {
namespace {

std::string_view textOf(const TextsByUrl& texts, const FileUrl& url) {
    const auto found = texts.find(url);
    return found == texts.end() ? std::string_view{} : found->second.view();
}

template <typename Element>
std::size_t memoryOf(const std::vector<Element>& elements) {
    return elements.capacity() * sizeof(Element);
}

}  // namespace

SearchCorpus::SearchCorpus(const Values& values) : values_(values) {
    filesChanged();
}

SearchCorpus::Block SearchCorpus::block(std::size_t number) const {
    const auto first = number * rowsInBlock;
    const auto begin = blockBegins_[number];
    const auto end = number + 1 < blockBegins_.size() ? blockBegins_[number + 1] : names_.size();
    return {rows().subspan(first, std::min(rowsInBlock, rows_.size() - first)),
            std::string_view(names_).substr(begin, end - begin)};
}

std::string_view SearchCorpus::name(std::size_t row) const {
    auto begin = blockBegins_[row / rowsInBlock];
    for (auto before = row / rowsInBlock * rowsInBlock; before < row; ++before)
        begin += rows_[before].nameSize;
    return std::string_view(names_).substr(begin, rows_[row].nameSize);
}

std::string_view SearchCorpus::text(const Row& row) const {
    return textOf(values_.texts, file(row).url);
}

template <typename Change>
void SearchCorpus::forEachRow(const FileUrl& url, Change change) {
    table_.visit(RowTable::hashOf(std::hash<FileUrl>{}(url)), [&](std::uint32_t number) {
        auto& row = rows_[number];
        if (urls_[row.file] == url) change(row);
        return true;
    });
}

void SearchCorpus::lowerTextsChanged() {
    inMemory_.clear();
    sorted_ = 0;
    for (auto& row : rows_) row.lowerText = SharedBytes();
    for (const auto& [url, text] : values_.lowerTexts)
        forEachRow(url, [&](Row& row) { row.lowerText = text; });
    for (std::uint32_t row = 0; row < rows_.size(); ++row) addPlace(row);
    sortInMemory();
}

void SearchCorpus::lowerTextsChanged(std::span<const FileUrl> urls) {
    std::vector<std::uint32_t> changed;
    std::vector<SharedBytes> before;
    for (const auto& url : urls) {
        const auto found = values_.lowerTexts.find(url);
        const auto text = found == values_.lowerTexts.end() ? SharedBytes() : found->second;
        forEachRow(url, [&](Row& row) {
            if (row.lowerText.address() == text.address()) return;
            changed.push_back(static_cast<std::uint32_t>(&row - rows_.data()));
            before.push_back(std::exchange(row.lowerText, text));
        });
    }
    const auto isText = [](const SharedBytes& text) { return !text.view().empty(); };
    if (std::ranges::any_of(before, isText)) removePlaces(changed);
    for (const auto row : changed) addPlace(row);
    if (inMemory_.size() > 2 * sorted_) sortInMemory();
}

void SearchCorpus::removePlaces(std::vector<std::uint32_t> rows) {
    std::ranges::sort(rows);
    const auto isGone = [&](const TextPlace& place) {
        return std::ranges::binary_search(rows, place.row);
    };
    const auto removed = std::erase_if(inMemory_, isGone);
    // Those that are not in order may have been among them: fewer are in order than there could be.
    sorted_ -= std::min(sorted_, removed);
}

void SearchCorpus::addPlace(std::uint32_t row) {
    const auto text = rows_[row].lowerText.view();
    if (text.empty()) return;
    inMemory_.push_back({text.data(), static_cast<std::uint32_t>(text.size()), row});
}

void SearchCorpus::sortInMemory() {
    if (sorted_ == inMemory_.size()) return;
    const auto fresh = inMemory_.begin() + static_cast<std::ptrdiff_t>(sorted_);
    std::ranges::sort(fresh, inMemory_.end(), {}, &TextPlace::address);
    std::ranges::inplace_merge(inMemory_, fresh, {}, &TextPlace::address);
    sorted_ = inMemory_.size();
}

void SearchCorpus::sourcesChanged() {
    for (auto& row : rows_) row.source = noSource;
    for (const auto& [url, source] : values_.sources)
        forEachRow(url, [&](Row& row) { row.source = sourceNumber(url); });
}

void SearchCorpus::sourcesChanged(std::span<const FileUrl> urls) {
    for (const auto& url : urls) forEachRow(url, [&](Row& row) { row.source = sourceNumber(url); });
}

std::uint32_t SearchCorpus::sourceNumber(const FileUrl& url) {
    const auto found = values_.sources.find(url);
    return found == values_.sources.end() ? noSource : sources_.add(found->second.view()) + 1;
}

std::size_t SearchCorpus::memory() const {
    return memoryOf(rows_) + names_.capacity() + memoryOf(blockBegins_) + memoryOf(urls_) +
           memoryOf(inMemory_) + table_.memory();
}

}  // namespace nookwise
