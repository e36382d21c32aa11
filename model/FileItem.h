// One scanned file.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace nookwise {

/// Lists identify it by `url`; equality and hash are over all fields.
struct FileItem {
    FileUrl url;
    /// Bytes on disk: what trashing the file gives back.
    std::int64_t size = 0;
    std::optional<Date> modified;
    /// When the file came into its folder.
    std::optional<Date> added;
    /// When the file was last opened. Known only for files that a pile looked at.
    std::optional<Date> lastUsed;

    friend bool operator==(const FileItem&, const FileItem&) = default;
};

}  // namespace nookwise

template <>
struct std::hash<nookwise::FileItem> {
    std::size_t operator()(const nookwise::FileItem& item) const noexcept;
};
