// Writing the application's own files.
#pragma once

#include "platform/Contents.h"
#include "platform/Result.h"

#include <variant>

namespace nookwise {

/// As FileManager::replaceContents.
Result<std::monostate> replaceOwnFile(const FileUrl& url, const ContentsSource& contents);

/// Removes what killed processes left of unfinished replacements in `folder`. This process may be
/// replacing files meanwhile.
void removeUnfinishedReplacements(const FileUrl& folder);

}  // namespace nookwise
