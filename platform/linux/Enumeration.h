// Walks a folder tree with several threads and reports it in order.
#pragma once

#include "platform/FileManager.h"
#include "platform/linux/OpenAt.h"

#include <functional>
#include <stop_token>

namespace nookwise {

/// The walk behind FileManager::enumerate. `folder` is the open root and `root` its URL. `found` is
/// called on the calling thread; `rules` on all threads. Other threads read at most some ten
/// thousand files ahead of what was reported.
void enumerateTree(const FileDescriptor& folder, const FileUrl& root, const EnumerationRules& rules,
                   const std::function<void(FoundFile&&)>& found, const std::stop_token& stop);

}  // namespace nookwise
