// What a folder holds, as a pane lists it.
#pragma once

#include "platform/FileManager.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <vector>

namespace nookwise {

struct FolderItem {
    FileUrl url;
    /// A folder that is no package.
    bool isFolder = false;
    /// Bytes on disk, else in the file, else 0.
    std::int64_t size = 0;
    /// When it came into its folder, else when it was changed.
    std::optional<Date> date;

    friend bool operator==(const FolderItem&, const FolderItem&) = default;
};

/// The entries that are not hidden: folders first, each kind newest first, those without a date at
/// the end; equal ones in the order of the names' bytes. Empty when the folder cannot be listed,
/// and after a stop request. Any thread; may take long.
std::vector<FolderItem> listFolder(const FileManager& files, const FileUrl& folder,
                                   const std::stop_token& stop);

}  // namespace nookwise
