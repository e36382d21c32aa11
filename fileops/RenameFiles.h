// Giving files new names in their folders.
#pragma once

#include "fileops/ActivityEntry.h"
#include "fileops/RenamePlan.h"
#include "platform/FileManager.h"

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace nookwise {

struct Renamed {
    std::vector<ActivityEntry::Move> moves;
    /// How many could not be renamed.
    std::size_t failed = 0;
};

/// One file after the other; a failure of one leaves the others alone. Rows whose file has the new
/// name already are passed by, and a name that is taken gets the next free number. `progress` is
/// told before each row how many are done.
Renamed renameFiles(FileManager& files, std::span<const RenameRow> rows,
                    const std::function<void(std::size_t done)>& progress);

}  // namespace nookwise
