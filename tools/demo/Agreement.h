// What was agreed about a sample home's files, as a text to keep beside it.
#pragma once

#include "tools/demo/AgreedFiles.h"

#include <optional>
#include <string>
#include <string_view>

namespace nookwise::demo {

/// Dates come back to the bit. Only for files below `home`, whose names hold no line break.
std::string agreementText(const AgreedFiles& agreed, const FileUrl& home);

/// None when the text is not whole.
std::optional<AgreedFiles> agreementFromText(std::string_view text, const FileUrl& home);

}  // namespace nookwise::demo
