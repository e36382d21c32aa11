// Reading a file as a whole.
#pragma once

#include "platform/FileManager.h"

#include <cstddef>
#include <string>

namespace nookwise {

/// The bytes of a regular file; a link is followed. Fails with std::errc::file_too_large when there
/// are more than `limit`.
Result<std::string> wholeFile(const FileManager& files, const FileUrl& url, std::size_t limit);

}  // namespace nookwise
