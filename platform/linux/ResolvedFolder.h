// An open folder and where it really is.
#pragma once

#include "platform/FileUrl.h"
#include "platform/linux/OpenAt.h"

#include <optional>
#include <string_view>

namespace nookwise {

struct ResolvedFolder {
    /// Opened with O_PATH.
    FileDescriptor folder;
    /// Without links, ".", ".." and doubled slashes.
    FileUrl url;
};

/// Opens a folder, every link on the way followed, by a path of any length; of one longer than
/// PATH_MAX, the far end may have no links. None with errno set.
std::optional<ResolvedFolder> resolveFolder(std::string_view path);

/// True when a path has no ".", ".." or doubled slash before its last component.
bool isPlainPath(std::string_view path);

}  // namespace nookwise
