// One entry of a pile.
#pragma once

#include "model/FileItem.h"
#include "model/HashCombine.h"

#include <functional>
#include <string>

namespace nookwise {

/// Lists identify it by `file.url`; equality and hash are over all fields.
struct SweepItem {
    FileItem file;
    /// Why the file is in the pile, as shown to the user.
    std::string reason;
    /// Whether it starts ticked in the review.
    bool preselected = false;

    friend bool operator==(const SweepItem&, const SweepItem&) = default;
};

}  // namespace nookwise

template <>
struct std::hash<nookwise::SweepItem> {
    std::size_t operator()(const nookwise::SweepItem& item) const noexcept {
        return nookwise::hashOf(item.file, item.reason, item.preselected);
    }
};
