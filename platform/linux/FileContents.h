// Copying the bytes of a file.
#pragma once

#include "platform/linux/FileState.h"

namespace nookwise {

/// Copies all bytes between open regular files, `to` being empty. Shares them where the file system
/// can; keeps holes. `state` is that of `from`. False with errno set, EBUSY when `from` has more or
/// fewer bytes than its state says.
bool copyContents(int from, int to, const FileState& state);

}  // namespace nookwise
