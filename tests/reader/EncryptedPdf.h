// PDF documents that are encrypted.
#pragma once

#include <string>
#include <string_view>

namespace nookwise {

enum class Password { none, needed };

/// One page that says the text, encrypted by the oldest scheme of the format (RC4 with 40 bits).
std::string encryptedPdf(std::string_view text, Password password);

}  // namespace nookwise
