// Characters (grapheme clusters) inside a text, by byte position. Input is UTF-8; bytes that are
// not stand as characters of their own.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace nookwise {

/// Bytes from `begin` on and before `end`.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// How many characters end at or before the byte at `position`.
std::size_t charactersBefore(std::string_view text, std::size_t position);

/// The characters from number `first`, counted from 0, up to but excluding number `last`; what
/// there is of them when the text ends earlier. Reads the text no further than that.
std::string_view characters(std::string_view text, std::size_t first, std::size_t last);

/// Calls `visit` with each character from the text's beginning until it returns false.
void visitCharacters(std::string_view text, const std::function<bool(std::string_view)>& visit);

/// The ranges, each made larger where it begins or ends inside a character. They must be in order
/// and not overlap; made larger, they may.
std::vector<TextRange> wholeCharacters(std::string_view text, std::vector<TextRange> ranges);

}  // namespace nookwise
