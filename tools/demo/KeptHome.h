// The sample home that stays from one start of the demo to the next.
#pragma once

#include "tools/demo/AgreedFiles.h"
#include "tools/demo/OwnFolder.h"

#include <functional>

namespace nookwise::demo {

struct KeptHome {
    FileUrl home;
    /// As it was agreed when the home was made, whatever became of the files since.
    AgreedFiles agreed;
};

/// Fills an empty folder; ages count from the date.
using HomeMaker = std::function<Result<AgreedFiles>(const FileUrl& home, Date now)>;

/// The home in `own` as it was left, or one that `make` makes now, where there is none that was
/// made to its end.
Result<KeptHome> keptHome(const OwnFolder& own, Date now, const HomeMaker& make);

}  // namespace nookwise::demo
