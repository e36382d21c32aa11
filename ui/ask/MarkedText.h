// A text with the words of a question marked, for rich text.
#pragma once

#include <QString>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace nookwise {

struct MarkedText {
    /// Shows the text letter by letter, whatever it holds: nothing in it is read as markup. Matches
    /// stand in spans of the class "mark".
    QString markup;
    /// The position of the first match among the shown characters; -1 without one.
    int firstMatch = -1;
};

/// Matches are those of the words, which are lower-cased. Control characters other than line feeds
/// and tabs, and those that turn the direction of writing, read as blanks, bytes that are not UTF-8
/// as U+FFFD.
MarkedText markedText(std::string_view text, std::span<const std::string> words);

/// The first `count` code points, or all of them when there are fewer.
std::string_view beginning(std::string_view text, std::size_t count);

}  // namespace nookwise
