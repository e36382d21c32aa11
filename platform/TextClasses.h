// What kind of character a character of a text is.
#pragma once

#include <string_view>

namespace nookwise {

enum class CharacterClass {
    letter,
    /// A digit, or another character that stands for a number.
    digit,
    /// Not one that ends a line.
    whiteSpace,
    /// Ends a line; CR LF is one character.
    lineBreak,
    control,
    /// Has no shape of its own: a soft hyphen, a mark of direction.
    invisible,
    /// Bytes that are not UTF-8.
    malformed,
    other,
};

/// Of a character (grapheme cluster): that of the code point that it begins with.
CharacterClass classOf(std::string_view character);

}  // namespace nookwise
