// What a folder takes up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace nookwise {

/// Bytes on disk of an open folder and all below it, as du(1) counts them: folders and links count
/// too, and a file of several names counts once. What cannot be read counts nothing. None where
/// more than `mostEntries` are below it.
std::optional<std::int64_t> diskUsage(int folder, std::size_t mostEntries);

}  // namespace nookwise
