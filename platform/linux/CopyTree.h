// Copying a file, or a folder and all that is below it.
#pragma once

#include "platform/linux/Tree.h"
#include "platform/linux/WatchedCopy.h"

namespace nookwise {

/// Whether everything in the tree can be copied: files, folders, links and pipes. False with errno
/// EOPNOTSUPP for sockets and devices.
bool isCopyable(const Tree& tree);

/// Makes a durable copy of a listed tree, which stands at `from`, under the free name `to`, whose
/// folder was opened for reading, so that it tells of all that could not be written since. False
/// with errno set, EBUSY when what is there is no longer what was listed, ECANCELED when the copy
/// is to end; what was copied so far is still there then.
bool copyTree(const Tree& tree, TreePlace from, TreePlace to, WatchedCopy& watched);

}  // namespace nookwise
