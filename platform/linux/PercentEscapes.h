// Bytes of any kind as plain text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// Every byte but the letters, digits and "-._~" of ASCII and the slash written as %XX.
std::string percentEscaped(std::string_view bytes);

/// The bytes again, however much of them was escaped. None when a % is not followed by two
/// hexadecimal digits.
std::optional<std::string> percentUnescaped(std::string_view text);

}  // namespace nookwise
