// Copying the bytes of a file.
#pragma once

#include "platform/linux/FileState.h"
#include "platform/linux/WatchedCopy.h"

namespace nookwise {

/// Copies all bytes between open regular files, `to` being empty. Shares them where the file system
/// can; keeps holes. `state` is that of `from`. Adds all of its bytes to `watched` as it goes.
/// False with errno set: EBUSY when `from` has more or fewer bytes than its state says, ECANCELED
/// when the copy is to end.
bool copyContents(int from, int to, const FileState& state, WatchedCopy& watched);

}  // namespace nookwise
