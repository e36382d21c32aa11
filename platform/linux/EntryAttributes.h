// What the file system says of all the entries of one folder.
#pragma once

#include "platform/linux/FolderEntries.h"

#include <stop_token>
#include <vector>

namespace nookwise {

/// The entries with their attributes, in the same order, read with several threads where there are
/// many. Those that cannot be examined are left out. Packages are without their sizes. After a stop
/// request it returns soon with anything.
std::vector<FoundFile> examineEntries(int folder, const FileUrl& url,
                                      const std::vector<FolderEntries::Entry>& entries,
                                      const std::stop_token& stop);

}  // namespace nookwise
