// Opening PDF documents that are in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace poppler {
class document;
}

namespace nookwise {

enum class PdfUse { text, textAndThumbnails };

/// Opens whatever Poppler opens late, while opening is still allowed, and keeps it open for the
/// life of the process. Call once, before the first document. False where Poppler then gives no
/// text.
bool preparePdf(PdfUse use = PdfUse::text);

/// Null for what is no PDF, cannot be repaired, or asks for a password. The bytes are not copied.
std::unique_ptr<poppler::document> openPdf(std::span<const std::byte> bytes);

}  // namespace nookwise
