// Decoding pictures: png, jpeg, heic, tiff, gif, webp and bmp.
#pragma once

#include "platform/TextReader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace nookwise {

/// Loads the decoders, while opening files is still allowed. Call once.
void preparePictures();

// None for what is no picture of these kinds, what is broken beyond showing, and what has more
// pixels than any camera takes. The dimensions are looked at before anything is decoded. Of several
// images in one file the first counts.

std::optional<PixelSize> pixelSize(std::span<const std::byte> file);

/// As TextReader::thumbnail.
std::optional<Picture> thumbnail(std::span<const std::byte> file, std::int32_t longestSide);

/// A picture as recognition wants it: one byte a pixel from 0 (black) to 255 (white), rows from the
/// top without padding.
struct GreyPicture {
    PixelSize size;
    std::string pixels;
};

/// Upright, on white where it is transparent, no side longer than `longestSide`, never enlarged.
std::optional<GreyPicture> greyPicture(std::span<const std::byte> file, std::int32_t longestSide);

}  // namespace nookwise
