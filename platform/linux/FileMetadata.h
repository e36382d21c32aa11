// Copying what a file has besides its bytes.
#pragma once

#include "platform/linux/FileState.h"

namespace nookwise {

/// Gives the open file or folder `to` the owner, extended attributes, access control lists,
/// permissions and times of `from`, whose state is `state`. What the file system of `to` has no
/// place for and what only root may set is left out. False with errno set.
bool copyMetadata(int from, int to, const FileState& state);

/// The same for a link or a pipe, which have no extended attributes of the user's.
bool setMetadata(int folder, const char* name, const FileState& state);

}  // namespace nookwise
