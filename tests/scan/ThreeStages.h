// The definition of copies, written down as plainly as it can be said, to compare the finder with.
#pragma once

#include "model/DuplicateGroup.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// SHA-256 in lower-case hexadecimal, by a road of its own.
std::string referenceSha256(std::string_view bytes);

/// Sizes, then digests of the first 64 KiB, then digests of everything. Files without contents
/// cannot be read.
std::vector<DuplicateGroup> threeStages(const std::vector<FileItem>& files,
                                        const std::map<FileUrl, std::string>& contents);

}  // namespace nookwise
