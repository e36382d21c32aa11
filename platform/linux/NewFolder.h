// Making folders.
#pragma once

#include "platform/FileManager.h"

namespace nookwise {

/// As FileManager::createFolder.
Result<std::monostate> makeFolder(const FileUrl& url, FolderAccess access);

}  // namespace nookwise
