// The text layer of PDF documents.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace nookwise {

/// As TextReader::pdf. Empty for what is no PDF, cannot be repaired, or asks for a password. Works
/// where files cannot be opened once preparePdf() has been called.
std::string pdfText(std::span<const std::byte> document);

}  // namespace nookwise
