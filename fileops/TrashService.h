// Sending files to the Trash and bringing them back.
#pragma once

#include "fileops/ActivityEntry.h"
#include "model/FileItem.h"
#include "platform/FileManager.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace nookwise {

/// Told before each file how many are done.
using BatchProgress = std::function<void(std::size_t done)>;

/// Static operations on one file after the other; a failure of one leaves the others alone.
class TrashService {
  public:
    struct Trashed {
        std::vector<ActivityEntry::Move> moves;
        std::vector<FileUrl> failed;
    };

    struct Returned {
        /// How many came back.
        std::size_t count = 0;
        /// The original places at which the files are not: they came back under other names, or not
        /// at all.
        std::vector<FileUrl> astray;
    };

    /// Nothing is checked beforehand: the file system's answer decides.
    static Trashed trash(FileManager& files, const std::vector<FileItem>& items,
                         const BatchProgress& progress);

    /// Moves each file from where it is (`inTrash`) to where it was, under the next free name where
    /// that is taken, and makes its folder again where that is gone. What is no longer there, or
    /// cannot be moved, is skipped.
    static Returned putBack(FileManager& files, const std::vector<ActivityEntry::Move>& moves,
                            const BatchProgress& progress);
};

}  // namespace nookwise
