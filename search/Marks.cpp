#include "search/Marks.h"

#include "search/CaseAlignment.h"
#include "search/WordFinder.h"

#include <algorithm>

namespace nookwise {
namespace {

/// For each beginning of the word, how long the longest shorter beginning is that it ends with.
std::vector<std::size_t> borders(std::string_view word) {
    std::vector<std::size_t> lengths(word.size(), 0);
    std::size_t length = 0;
    for (std::size_t i = 1; i < word.size(); ++i) {
        while (length > 0 && word[i] != word[length]) length = lengths[length - 1];
        if (word[i] == word[length]) ++length;
        lengths[i] = length;
    }
    return lengths;
}

/// The stretches of the text that the word covers. One place may begin inside another: "anan"
/// stands twice in "ananan". Looks at each byte about twice, whatever the two are made of.
void addPlaces(std::string_view lower, std::string_view word, std::vector<TextRange>& places) {
    if (word.empty()) return;
    const auto first = WordFinder(word).find(lower);
    if (first == std::string_view::npos) return;
    const auto lengths = borders(word);
    std::size_t length = 0;
    for (auto i = first; i < lower.size(); ++i) {
        while (length > 0 && lower[i] != word[length]) length = lengths[length - 1];
        if (lower[i] == word[length]) ++length;
        if (length < word.size()) continue;
        const TextRange place{i + 1 - length, i + 1};
        const bool goesOn = !places.empty() && places.back().begin <= place.begin &&
                            place.begin <= places.back().end;
        if (goesOn)
            places.back().end = std::max(places.back().end, place.end);
        else
            places.push_back(place);
        length = lengths[length - 1];
    }
}

std::vector<TextRange> joined(std::vector<TextRange> ranges) {
    std::ranges::sort(ranges, {}, &TextRange::begin);
    std::vector<TextRange> result;
    for (const auto range : ranges) {
        if (result.empty() || range.begin > result.back().end)
            result.push_back(range);
        else
            result.back().end = std::max(result.back().end, range.end);
    }
    return result;
}

}  // namespace

std::vector<TextRange> matchRanges(std::string_view text, std::span<const std::string> words) {
    if (words.empty()) return {};
    const CaseAlignment alignment(text);
    std::vector<TextRange> ranges;
    for (const auto& word : words) addPlaces(alignment.lower(), word, ranges);
    for (auto& range : ranges) range = alignment.inText(range);
    return joined(wholeCharacters(text, joined(std::move(ranges))));
}

}  // namespace nookwise
