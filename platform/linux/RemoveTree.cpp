#include "platform/linux/RemoveTree.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

bool unlinkEntry(int folder, const char* name, bool isFolder) {
    return ::unlinkat(folder, name, isFolder ? AT_REMOVEDIR : 0) == 0;
}

/// The owner of a read-only folder may empty it all the same, as a rename would have moved it. The
/// permissions come back when that does not help.
bool removeEntry(int folder, const char* name, bool isFolder) {
    if (unlinkEntry(folder, name, isFolder)) return true;
    if (errno != EACCES) return false;
    struct stat status {};
    if (::fstat(folder, &status) == 0 && (status.st_mode & S_IRWXU) != S_IRWXU &&
        ::fchmod(folder, (status.st_mode & ALLPERMS) | S_IRWXU) == 0) {
        if (unlinkEntry(folder, name, isFolder)) return true;
        ::fchmod(folder, status.st_mode & ALLPERMS);
    }
    errno = EACCES;
    return false;
}

/// A folder changes as it is emptied, and only an empty one is ever removed. The time of the last
/// change of a file's state moves when another of its names is removed.
bool isAsListed(const FileState& listed, const FileState& now) {
    return listed.isFolder() ? isSameFile(listed, now) : hasSameContents(listed, now);
}

bool isStillListed(const TreeEntry& entry, int folder, const char* name) {
    FileState now;
    if (!readState(folder, name, now)) return false;
    if (isAsListed(entry.state, now)) return true;
    errno = EBUSY;
    return false;
}

/// The folder that holds the root is not the tree's to open up.
bool removeIfListed(const TreeEntry& entry, int folder, const char* name, bool isRoot) {
    if (!isStillListed(entry, folder, name)) return false;
    const bool isFolder = entry.state.isFolder();
    return isRoot ? unlinkEntry(folder, name, isFolder) : removeEntry(folder, name, isFolder);
}

/// A folder of one's own can be opened up; the one that holds the root is not the tree's.
bool mayEmpty(const Tree& tree, std::size_t entry, int folder) {
    const bool isOwn = entry != 0 && tree[tree[entry].parent].state.owner == ::geteuid();
    return isOwn || ::faccessat(folder, ".", W_OK | X_OK, AT_EACCESS) == 0;
}

/// In a folder like /tmp everyone may remove only what is his own.
bool isAnothers(const TreeEntry& entry, const FileState& folder) {
    const auto user = ::geteuid();
    return (folder.mode & S_ISVTX) != 0 && user != 0 && folder.owner != user &&
           entry.state.owner != user;
}

/// Why the entry cannot be removed from its folder, as errno tells it; zero if nothing is known.
int obstacle(const TreeEntry& entry, const FileState& folder) {
    if (entry.state.isMountPoint) return EBUSY;
    const bool isKept = entry.state.isLocked || folder.isLocked || isAnothers(entry, folder);
    return isKept ? EPERM : 0;
}

}  // namespace

bool mayRemove(const Tree& tree, TreePlace place) {
    TreeFolders folders(tree, place);
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const int holding = folders.holding(i);
        FileState folder;
        if (holding < 0 || !readState(holding, "", folder)) return false;
        if (!mayEmpty(tree, i, holding)) return false;
        if (const int reason = obstacle(tree[i], folder); reason != 0) {
            errno = reason;
            return false;
        }
    }
    return true;
}

bool removeTree(TreePlace place) {
    if (unlinkEntry(place.folder, place.name, false) || errno == ENOENT) return true;
    Tree tree;
    if (!listTree(place, TreeUse::removing, tree, {})) return errno == ENOENT;
    TreeFolders folders(tree, place);
    bool isRootRemoved = false;
    for (std::size_t i = tree.size(); i-- > 0;) {
        // The root's own folder is not the tree's to open up.
        const int holding = folders.holding(i);
        const bool isFolder = tree[i].state.isFolder();
        isRootRemoved = holding >= 0 && (i == 0 ? unlinkEntry(holding, place.name, isFolder)
                                                : removeEntry(holding, folders.name(i), isFolder));
    }
    return isRootRemoved || errno == ENOENT;
}

bool removeListed(const Tree& tree, TreePlace place, std::size_t& removed) {
    TreeFolders folders(tree, place);
    for (std::size_t i = tree.size(); i-- > 0;) {
        const int holding = folders.holding(i);
        if (!(holding >= 0 && removeIfListed(tree[i], holding, folders.name(i), i == 0)) &&
            errno != ENOENT)
            return false;
        ++removed;
    }
    return true;
}

bool holdsUnlisted(const Tree& tree, TreePlace place) {
    Tree left;
    if (!listTree(place, TreeUse::removing, left, {})) return false;
    std::map<std::pair<std::uint64_t, std::uint64_t>, const FileState*> listed;
    for (const auto& entry : tree) listed[{entry.state.device, entry.state.inode}] = &entry.state;
    return std::any_of(left.begin(), left.end(), [&](const TreeEntry& entry) {
        const auto found = listed.find({entry.state.device, entry.state.inode});
        return found == listed.end() || !isAsListed(*found->second, entry.state);
    });
}

}  // namespace nookwise
