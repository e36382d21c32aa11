// The desktop's names for the user's folders.
#pragma once

#include "platform/FileUrl.h"

#include <optional>
#include <string_view>

namespace nookwise {

/// The folder that `text`, the contents of user-dirs.dirs, names for `key` ("DESKTOP", "PICTURES");
/// of several the last. None when it is not named, when the line is broken, and when the folder is
/// `home` or holds it: a missing folder is entered as the home folder.
std::optional<FileUrl> userDir(std::string_view text, std::string_view key, const FileUrl& home);

}  // namespace nookwise
