// Finds files with identical contents.
#pragma once

#include "model/DuplicateGroup.h"
#include "platform/FileManager.h"

#include <span>
#include <stop_token>
#include <vector>

namespace nookwise {

/// Folders where copies pile up, in addition to everything below a folder named Downloads or
/// Desktop: the user's own ones, which may have names in another language. Empty URLs stand for no
/// folder.
struct ArrivalFolders {
    FileUrl downloads;
    FileUrl desktop;
};

/// True when `a` is the better copy to keep: outside Downloads and Desktop, without a copy's name,
/// older.
bool keepFirst(const FileItem& a, const FileItem& b, const ArrivalFolders& folders = {});

/// Groups of byte-for-byte identical files among those of a listed extension, from 64 KiB to 4 GB
/// on disk, the largest waste first. Groups of equal waste stand in the order of their first files
/// in `candidates`. Files that cannot be read, that change while they are read, or whose contents
/// are longer than 4 GB (holes take no room on disk) belong to no group, and a file reached by two
/// roads is no copy of itself. Reads with several threads; returns an empty list soon after a stop
/// request.
std::vector<DuplicateGroup> findDuplicates(const FileManager& files,
                                           std::span<const FileItem> candidates,
                                           const std::stop_token& stop,
                                           const ArrivalFolders& folders = {});

}  // namespace nookwise
