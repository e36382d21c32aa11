// Texts kept by the file that they belong to.
#pragma once

#include "platform/FileUrl.h"
#include "platform/SharedBytes.h"

#include <unordered_map>

namespace nookwise {

using TextsByUrl = std::unordered_map<FileUrl, SharedBytes>;

}  // namespace nookwise
