// The piece of a text that an answer shows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nookwise {

/// Some 90 characters of `text` on one line, around what was found at the byte `position` of
/// `lower`, its lower case; "…" where something was left off. Where lower case has another number
/// of characters, the piece lies a little beside.
std::string snippet(std::string_view text, std::string_view lower, std::size_t position);

}  // namespace nookwise
