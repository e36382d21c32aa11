// Decodes a picture file at about the size in which it is wanted.
#pragma once

#include "platform/TextReader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace nookwise {

enum class Transparency { kept, onWhite };

/// Rows from the top without padding, 1 (grey), 2 (grey, alpha), 3 (red, green, blue) or 4 (red,
/// green, blue, alpha) bytes a pixel.
struct DecodedPicture {
    struct Free {
        void operator()(void* bytes) const;
    };

    PixelSize size;
    int bands = 0;
    std::unique_ptr<void, Free> bytes;

    std::span<const std::uint8_t> pixels() const;
};

/// Loads the library. Call once.
void prepareDecoder();

/// Upright.
std::optional<PixelSize> decodedSize(std::span<const std::byte> file);

/// Upright, no side longer than `longestSide`, never enlarged.
std::optional<DecodedPicture> decode(std::span<const std::byte> file, std::int32_t longestSide,
                                     Transparency transparency);

}  // namespace nookwise
