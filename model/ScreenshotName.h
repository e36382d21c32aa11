// Recognising screenshots by name.
#pragma once

#include <string_view>

namespace nookwise {

/// True when the name, lower-cased, begins as the capture tools name their files.
bool looksLikeScreenshot(std::string_view fileName);

}  // namespace nookwise
