// Names that a file system has room for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace nookwise {

/// The longest name that Linux file systems take, in bytes.
inline constexpr std::size_t longestName = 255;

/// The beginning of `text` that fits into `room` bytes, cut between characters. A first character
/// that is longer than that is cut between its code points.
std::string_view fitting(std::string_view text, std::size_t room);

/// "base.extension", or "base" without an extension. Cuts nothing.
std::string nameOf(std::string_view base, std::string_view extension);

/// "base (n).extension", or "base (n)" without an extension. The base loses whole characters at its
/// end where the name would be longer than a file system takes.
std::string numberedName(std::string_view base, std::string_view extension, std::uint64_t number);

}  // namespace nookwise
