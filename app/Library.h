// The library lists, derived from the scanned files.
#pragma once

#include "model/FileItem.h"
#include "model/ShelfKind.h"
#include "platform/UserFolders.h"

#include <map>
#include <span>
#include <vector>

namespace nookwise {

using Shelves = std::map<ShelfKind, std::vector<FileItem>>;

/// Each list is sorted newest first.
struct Library {
    /// A shelf without files has no key.
    Shelves shelves;
    /// Arrived in the last 7 days.
    std::vector<FileItem> recent;
    /// Lying directly in Downloads or on the Desktop.
    std::vector<FileItem> justLanded;
    /// Pictures named as screenshots are.
    std::vector<FileItem> screenshots;
};

Library buildLibrary(std::span<const FileItem> files, const FileUrl& downloads,
                     const FileUrl& desktop, Date now);

}  // namespace nookwise
