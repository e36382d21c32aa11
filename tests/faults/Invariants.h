// What must hold whatever happens to an operation.
#pragma once

#include "tests/faults/World.h"

#include <string>
#include <vector>

namespace nookwise {

enum class Moment {
    /// Temporary files may be left where the operation did not end well.
    atOnce,
    /// After the next start: nothing temporary is left.
    afterRecovery,
};

/// What does not hold, in words. `before` is all that stood before the operation.
std::vector<std::string> violations(const World& world, const Everything& before,
                                    const TracedRun& run, Moment moment);

}  // namespace nookwise
