// Files with identical contents.
#pragma once

#include "model/FileItem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace nookwise {

struct DuplicateGroup {
    /// SHA-256 of the contents in lower-case hexadecimal. Not unique within a list: the same
    /// contents stored with two allocated sizes make two groups.
    std::string id;
    /// The copy most worth keeping first.
    std::vector<FileItem> files;
    /// The copy that stays.
    FileUrl keep;

    /// The first file at `keep`, or null. Valid as long as `files` is not changed.
    const FileItem* keptFile() const;

    /// Every file that is not at `keep`, in list order: the copies offered for removal.
    std::vector<FileItem> extras() const;

    friend bool operator==(const DuplicateGroup&, const DuplicateGroup&) = default;
};

/// Bytes that removing all copies but one gives back; 0 for an empty group. The first file's size
/// stands for every copy's. Overflow stops the program.
std::int64_t wastedBytes(const DuplicateGroup& group);

}  // namespace nookwise

template <>
struct std::hash<nookwise::DuplicateGroup> {
    std::size_t operator()(const nookwise::DuplicateGroup& group) const noexcept;
};
