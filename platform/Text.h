// Unicode text operations. Input is UTF-8; bytes that are not are passed through
// untouched, unless a function says otherwise.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nookwise {

/// Lower case by the Unicode default rules, whatever the user's locale.
std::string lowercased(std::string_view text);

/// Likewise, in memory that is used again and again. `text` must not lie in it.
void lowercase(std::string_view text, std::string& lower);

/// Upper case likewise.
std::string uppercased(std::string_view text);

/// The characters (grapheme clusters) that begin with a letter, in lower case and in composed form
/// (NFC), so that equal texts have equal bytes.
std::string lowercasedLetters(std::string_view text);

/// The form in which texts are compared when upper and lower case, and the composed and the
/// decomposed form of a letter, are to be the same.
std::string caseFolded(std::string_view text);

/// Whether all of it is UTF-8.
bool isWellFormed(std::string_view text);

/// The text with U+FFFD in place of what is not UTF-8.
std::string wellFormed(std::string_view text);

/// How many characters (grapheme clusters) there are.
std::size_t characterCount(std::string_view text);

/// The first `count` characters, or all of them when there are fewer.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// A key whose byte order is the order in which a file viewer of the user's locale lists names:
/// digit runs count as numbers, case is ignored.
std::string collationKey(std::string_view text);

}  // namespace nookwise
