#include "search/Snippet.h"

#include "platform/TextCharacters.h"

#include <algorithm>

namespace nookwise {
namespace {

constexpr std::size_t charactersBeforeMatch = 30;
constexpr std::size_t charactersFromMatch = 60;
constexpr std::string_view ellipsis = "…";

/// The first bytes of the text without line feeds; not ending inside a code point.
std::string firstBytes(std::string_view text, std::size_t count) {
    const auto isContinuation = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    while (count < text.size() && isContinuation(text[count])) ++count;
    std::string line(text.substr(0, count));
    std::ranges::replace(line, '\n', ' ');
    return line;
}

}  // namespace

std::string snippet(std::string_view text, std::string_view lower, std::size_t position) {
    const auto offset = charactersBefore(lower, position);
    const auto first = offset - std::min(offset, charactersBeforeMatch);
    const auto last = offset + charactersFromMatch;
    // Enough for most scripts; whoever writes characters of many bytes makes it read on.
    for (std::size_t size = position + 1'024;; size *= 2) {
        const auto line = firstBytes(text, size);
        const auto piece = characters(line, first, last);
        const auto end = static_cast<std::size_t>(piece.data() + piece.size() - line.data());
        if (end == line.size() && line.size() < text.size()) continue;
        std::string shown(first > 0 ? ellipsis : "");
        shown += piece;
        if (end < line.size()) shown += ellipsis;
        return shown;
    }
}

}  // namespace nookwise
