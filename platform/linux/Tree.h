// A file, or a folder and all that is below it, as it was seen.
#pragma once

#include "platform/linux/FileState.h"
#include "platform/linux/OpenAt.h"

#include <cstddef>
#include <stop_token>
#include <string>
#include <vector>

namespace nookwise {

struct TreeEntry {
    /// The position of the folder it is in; of the root itself, its own.
    std::size_t parent = 0;
    /// The root's is empty: it depends on the place.
    std::string name;
    FileState state;
};

/// The root first, every folder before what is in it, and what is in one folder side by side.
using Tree = std::vector<TreeEntry>;

/// Where a tree stands: the name of its root in an open folder.
struct TreePlace {
    int folder;
    const char* name;
};

enum class TreeUse {
    /// Every folder must be readable, and nothing may be mounted in them (errno EBUSY).
    copying,
    /// Folders are opened up that their owner closed. What is mounted in one, and what cannot be
    /// read, is not looked into.
    removing,
};

/// False with errno set when it cannot be listed, ECANCELED after a stop request. Follows no link.
bool listTree(TreePlace place, TreeUse use, Tree& tree, const std::stop_token& stop);

/// Whether the tree still stands there and nothing was done to it since it was listed; that its
/// root got another name does not count. False with errno set.
bool isTreeUnchanged(const Tree& tree, TreePlace place);

/// Opens the folders of a tree one after another. Only one is open at a time, so that a tree may be
/// deeper than a process has files.
class TreeFolders {
  public:
    /// `tree` may grow, but must live on.
    TreeFolders(const Tree& tree, TreePlace place) : tree_(tree), place_(place) {}

    /// The open folder that holds the entry, until the next call. -1 with errno set.
    int holding(std::size_t entry);
    /// The entry's name there.
    const char* name(std::size_t entry) const;
    /// Opens the entry itself, a folder.
    FileDescriptor open(std::size_t entry);

  private:
    std::string path(std::size_t entry) const;

    const Tree& tree_;
    TreePlace place_;
    FileDescriptor opened_;
    std::size_t openedEntry_ = 0;
};

}  // namespace nookwise
