// Where the words of a question stand in a text that is shown.
#pragma once

#include "platform/TextCharacters.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// The bytes of `text` to be marked: every place where one of the words, which are lower-cased,
/// stands in the lower-cased text. Whole characters, in order, and never touching each other.
std::vector<TextRange> matchRanges(std::string_view text, std::span<const std::string> words);

}  // namespace nookwise
