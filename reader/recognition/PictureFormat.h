// Which kind of picture a file holds, by its first bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace nookwise {

enum class PictureFormat { png, jpeg, heic, tiff, gif, webp, bmp };

/// The file's name counts for nothing: pictures are often saved under another kind's extension.
/// None for AVIF, whatever brand it names.
std::optional<PictureFormat> pictureFormat(std::span<const std::byte> file);

}  // namespace nookwise
