// Removing files and folders for good.
#pragma once

#include "platform/linux/Tree.h"

namespace nookwise {

/// Removes whatever has the name, a folder with all that is in it, as far as it can be removed.
/// Follows no link and leaves alone what is mounted in a folder. True when nothing has the name any
/// more; else false with errno set.
bool removeTree(TreePlace place);

/// Whether all of a tree may be removed, as far as that can be told beforehand. False with errno
/// set.
bool mayRemove(const Tree& tree, TreePlace place);

/// Removes the entries of a tree, each only while it is still the file that was listed, with the
/// contents that it had then. Stops at the first one that cannot be removed: false with errno set.
/// `removed` counts those that are gone, others' doing included.
bool removeListed(const Tree& tree, TreePlace place, std::size_t& removed);

/// Whether there is anything that is not the listed tree's, or a file with other contents than it
/// had then. What cannot be looked at is taken to be as it was. Opens up folders like removeTree.
bool holdsUnlisted(const Tree& tree, TreePlace place);

}  // namespace nookwise
