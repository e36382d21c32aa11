// Pictures of PDF documents.
#pragma once

#include "platform/TextReader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace nookwise {

/// As TextReader::thumbnail: the first page at no more than 72 pixels an inch. None for what is no
/// PDF or asks for a password.
std::optional<Picture> pdfThumbnail(std::span<const std::byte> document, std::int32_t longestSide);

}  // namespace nookwise
