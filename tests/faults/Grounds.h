// Where the scenarios take place.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace nookwise {

struct Grounds {
    std::filesystem::path near;
    /// On another file system. Empty where there is none.
    std::filesystem::path far;
    /// Why the two are not top directories of volumes of their own. None where they are.
    std::optional<std::string> whyNoVolumes;
    /// Whether every ground does.
    bool keepAttributes = true;
};

/// The same until the process ends.
const Grounds& grounds();

/// Removes all that is in a folder.
void clear(const std::filesystem::path& folder);

}  // namespace nookwise
