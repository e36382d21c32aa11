// Which files are pictures with text to find in them.
#pragma once

#include <string_view>

namespace nookwise {

/// `extension` is lower-case, without the dot.
bool isImageExtension(std::string_view extension);

}  // namespace nookwise
