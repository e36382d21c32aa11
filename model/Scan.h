// What a scan reports and what it returns.
#pragma once

#include "model/DuplicateGroup.h"
#include "model/FileItem.h"
#include "model/PileKind.h"
#include "model/SweepItem.h"

#include <map>
#include <string>
#include <vector>

namespace nookwise {

struct ScanProgress {
    /// The root being read ("Desktop"), empty after the walk.
    std::string folder;
    int filesSeen = 0;
    /// 0 to 1.
    double fraction = 0.0;
    /// The current step, as shown to the user.
    std::string step;

    friend bool operator==(const ScanProgress&, const ScanProgress&) = default;
};

using Piles = std::map<PileKind, std::vector<SweepItem>>;

struct ScanResult {
    /// Every kind but `duplicates`, also where the pile is empty.
    Piles piles;
    /// The largest waste first.
    std::vector<DuplicateGroup> duplicates;
    /// Every file of the walk, in walk order.
    std::vector<FileItem> files;
};

}  // namespace nookwise
