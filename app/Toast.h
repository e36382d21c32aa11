// The message at the foot of the window.
#pragma once

#include "platform/Uuid.h"

#include <optional>
#include <string>

namespace nookwise {

struct Toast {
    /// New for every toast: two with the same text are different.
    Uuid id;
    std::string message;
    /// The activity entry that it reports, which can be put back and shown.
    std::optional<Uuid> entryID;

    friend bool operator==(const Toast&, const Toast&) = default;
};

}  // namespace nookwise
