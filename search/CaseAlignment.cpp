#include "search/CaseAlignment.h"

#include "platform/Text.h"

#include <algorithm>

namespace nookwise {
namespace {

bool isAscii(char byte) {
    return static_cast<signed char>(byte) >= 0;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The code point at `begin`, with what follows it that is not UTF-8.
TextRange codePointAt(std::string_view text, std::size_t begin) {
    auto end = begin + 1;
    while (end < text.size() && isContinuation(text[end])) ++end;
    return {begin, end};
}

}  // namespace

CaseAlignment::CaseAlignment(std::string_view text) : lower_(lowercased(text)) {
    std::size_t lower = 0;
    for (std::size_t position = 0; position < text.size();) {
        const auto codePoint = codePointAt(text, position);
        const auto length = codePoint.end - codePoint.begin;
        position = codePoint.end;
        // What comes before and after a code point decides at most which one it becomes in lower
        // case, not how many bytes that has.
        const auto lowerLength = isAscii(text[codePoint.begin])
                                     ? length
                                     : lowercased(text.substr(codePoint.begin, length)).size();
        if (lowerLength != length) changes_.push_back({codePoint, {lower, lower + lowerLength}});
        lower += lowerLength;
    }
}

TextRange CaseAlignment::inText(TextRange inLower) const {
    return {beginInText(inLower.begin), endInText(inLower.end)};
}

std::size_t CaseAlignment::beginInText(std::size_t begin) const {
    const auto after = std::ranges::upper_bound(
        changes_, begin, {}, [](const Change& change) { return change.lower.begin; });
    if (after == changes_.begin()) return begin;
    const auto& change = *std::prev(after);
    if (begin < change.lower.end) return change.text.begin;
    return change.text.end + (begin - change.lower.end);
}

std::size_t CaseAlignment::endInText(std::size_t end) const {
    const auto after = std::ranges::lower_bound(
        changes_, end, {}, [](const Change& change) { return change.lower.begin; });
    if (after == changes_.begin()) return end;
    const auto& change = *std::prev(after);
    return change.text.end + (std::max(end, change.lower.end) - change.lower.end);
}

}  // namespace nookwise
