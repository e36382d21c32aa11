// The text that was read inside a file.
#pragma once

#include "model/TextsByUrl.h"

#include <string_view>

namespace nookwise {

/// Empty where none was read.
SharedBytes textInside(const TextsByUrl& texts, const FileUrl& url);

/// Without the blank lines at the top, which would only take room; empty where there is nothing
/// else.
std::string_view fromFirstLetter(std::string_view text);

}  // namespace nookwise
