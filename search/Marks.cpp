#include "search/Marks.h"

#include "search/CaseAlignment.h"

#include <algorithm>

namespace nookwise {
namespace {

void addPlaces(std::string_view lower, std::string_view word, std::vector<TextRange>& places) {
    if (word.empty()) return;
    // One place may begin inside another: "anan" stands twice in "ananan".
    for (auto begin = lower.find(word); begin != std::string_view::npos;
         begin = lower.find(word, begin + 1))
        places.push_back({begin, begin + word.size()});
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
