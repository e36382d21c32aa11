// Compressed data for tests: of contents far larger than anybody would write out.
#pragma once

#include "platform/TextReader.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace nookwise {

/// A zlib stream of `part`, `times` times over. Made in the time that one takes.
std::string deflated(std::string_view part, std::size_t times = 1);

/// Without its alpha.
std::string png(const Picture& picture);

/// All black and transparent, four bytes a pixel.
std::string emptyPng(PixelSize size);

}  // namespace nookwise
