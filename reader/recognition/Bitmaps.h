// BMP files, which the library behind the other formats does not read.
#pragma once

#include "platform/TextReader.h"

#include <cstddef>
#include <optional>
#include <span>

namespace nookwise {

/// The library tells of every flaw of a file; call once to have it silent.
void silenceBitmaps();

/// From the header alone. None when it is cut off or tells no size.
std::optional<PixelSize> bitmapSize(std::span<const std::byte> file);

/// None for what is broken, and for the compressed ones.
std::optional<Picture> decodeBitmap(std::span<const std::byte> file);

}  // namespace nookwise
