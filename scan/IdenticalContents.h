// Tells files of equal length apart by their contents.
#pragma once

#include "platform/FileManager.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace nookwise {

/// Files whose contents are the same, byte for byte.
struct IdenticalFiles {
    /// SHA-256 of the contents, 64 lower-case hexadecimal digits.
    std::string digest;
    /// Positions in the list given, ascending; at least two.
    std::vector<std::size_t> positions;
};

/// The sets of two and more identical files among `urls`, in the order of their first members. A
/// file that cannot be read, that is not `length` bytes long or changes while it is read is in
/// none; neither are more paths of one file than it has hard links. Each file is read once, side by
/// side with those it still equals, and only as far as another one equals it. Empty after a stop
/// request. Memory: 256 KiB for each of at most 64 files compared at once.
std::vector<IdenticalFiles> findIdentical(const FileManager& files, std::span<const FileUrl> urls,
                                          std::int64_t length, const std::stop_token& stop);

}  // namespace nookwise
