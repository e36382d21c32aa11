// The addresses a file was fetched from.
#pragma once

#include "platform/FileUrl.h"

#include <string>
#include <vector>

namespace nookwise {

/// As the program that fetched the file noted them: the address, the page that led there, and the
/// desktop's own note of the download, each only when it is there and UTF-8.
std::vector<std::string> originsOf(const FileUrl& url);

}  // namespace nookwise
