#include "platform/linux/CopyTree.h"

#include "platform/linux/FileContents.h"
#include "platform/linux/FileMetadata.h"
#include "platform/linux/Publish.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <map>
#include <utility>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace nookwise {
namespace {

bool isStill(const FileState& state, int file) {
    FileState now;
    if (!readState(file, "", now)) return false;
    if (isUnchanged(state, now)) return true;
    errno = EBUSY;
    return false;
}

/// How the copy reaches the disk.
enum class Sync { eachFile, fileSystem };

bool copyRegularFile(const FileState& state, TreePlace from, TreePlace to, Sync sync,
                     WatchedCopy& watched) {
    // Something else may have come in its place, even a pipe, which must not be waited for.
    const auto source = openBelow(from.folder, from.name, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!source || !isStill(state, source.get())) return false;
    const FileDescriptor copy(
        ::openat(to.folder, to.name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    return copy && copyContents(source.get(), copy.get(), state, watched) &&
           copyMetadata(source.get(), copy.get(), state) &&
           (sync == Sync::fileSystem || ::fsync(copy.get()) == 0) && isStill(state, source.get());
}

bool copyLink(const FileState& state, TreePlace from, TreePlace to) {
    // The kernel gives no longer one.
    std::array<char, PATH_MAX + 1> target{};
    const auto length = ::readlinkat(from.folder, from.name, target.data(), target.size() - 1);
    if (length < 0) return false;
    return ::symlinkat(target.data(), to.folder, to.name) == 0 &&
           setMetadata(to.folder, to.name, state);
}

/// Its owner's alone until all is in it and it gets its own permissions. Set once more, because the
/// mask for new files, or a list inherited from the folder above, may keep even the owner out.
bool makeFolderForFilling(TreePlace to) {
    if (::mkdirat(to.folder, to.name, S_IRWXU) != 0) return false;
    ::fchmodat(to.folder, to.name, S_IRWXU, AT_SYMLINK_NOFOLLOW);
    return true;
}

bool copyEntry(const FileState& state, TreePlace from, TreePlace to, Sync sync,
               WatchedCopy& watched) {
    switch (state.mode & S_IFMT) {
        case S_IFREG:
            return copyRegularFile(state, from, to, sync, watched);
        case S_IFLNK:
            return copyLink(state, from, to);
        case S_IFIFO:
            return ::mkfifoat(to.folder, to.name, 0600) == 0 &&
                   setMetadata(to.folder, to.name, state);
        case S_IFDIR:
            return makeFolderForFilling(to);
        default:
            errno = EOPNOTSUPP;
            return false;
    }
}

/// Finds the names of one file in a tree.
class SharedFiles {
  public:
    /// The entry that came first with the file that this entry names: itself, perhaps.
    std::size_t first(const Tree& tree, std::size_t entry) {
        const auto& state = tree[entry].state;
        if (state.isFolder() || state.linkCount < 2) return entry;
        return first_.try_emplace({state.device, state.inode}, entry).first->second;
    }

  private:
    std::map<std::pair<std::uint64_t, std::uint64_t>, std::size_t> first_;
};

bool linkCopies(const Tree& tree, TreePlace to, std::size_t first, std::size_t entry) {
    TreeFolders firstFolders(tree, to);
    TreeFolders folders(tree, to);
    const int firstHolding = firstFolders.holding(first);
    const int holding = folders.holding(entry);
    return firstHolding >= 0 && holding >= 0 &&
           ::linkat(firstHolding, firstFolders.name(first), holding, folders.name(entry), 0) == 0;
}

/// A file system without hard links gets a copy for each name.
bool hasNoLinks() {
    return errno == EPERM || errno == ENOTSUP || errno == ENOSYS || errno == EMLINK;
}

/// What copying it will count, if links can be made there.
std::int64_t bytesToCopy(const Tree& tree) {
    SharedFiles shared;
    std::int64_t bytes = 0;
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const auto& state = tree[i].state;
        if (state.isRegular() && shared.first(tree, i) == i)
            bytes = saturatedSum(bytes, state.size);
    }
    return bytes;
}

bool copyEntries(const Tree& tree, TreePlace from, TreePlace to, Sync sync, WatchedCopy& watched) {
    TreeFolders sources(tree, from);
    TreeFolders targets(tree, to);
    SharedFiles shared;
    for (std::size_t i = 0; i < tree.size(); ++i) {
        if (!mayGoOn(watched.stop())) return false;
        const auto first = shared.first(tree, i);
        if (first != i) {
            if (linkCopies(tree, to, first, i)) continue;
            if (!hasNoLinks()) return false;
        }
        const int source = sources.holding(i);
        const int target = source < 0 ? -1 : targets.holding(i);
        if (target < 0 || !copyEntry(tree[i].state, {source, sources.name(i)},
                                     {target, targets.name(i)}, sync, watched))
            return false;
    }
    return true;
}

/// From the innermost outwards: what is put into a folder moves its time.
bool finishFolders(const Tree& tree, TreePlace from, TreePlace to, Sync sync) {
    TreeFolders sources(tree, from);
    TreeFolders targets(tree, to);
    for (std::size_t i = tree.size(); i-- > 0;) {
        const auto& state = tree[i].state;
        if (!state.isFolder()) continue;
        const auto source = sources.open(i);
        if (!source || !isStill(state, source.get())) return false;
        const auto target = targets.open(i);
        if (!target || !copyMetadata(source.get(), target.get(), state) ||
            (sync == Sync::eachFile && !syncFolder(target.get())))
            return false;
    }
    return true;
}

/// Whether syncing a whole file system writes all of it, and tells of what could not be written:
/// since Linux 5.8, on file systems of this computer. One in user space may leave it in a cache.
bool canSyncFileSystem(int folder) {
    utsname system{};
    int major = 0;
    int minor = 0;
    if (::uname(&system) != 0 || std::sscanf(system.release, "%d.%d", &major, &minor) != 2 ||
        std::pair(major, minor) < std::pair(5, 8))
        return false;
    struct statfs status {};
    if (::fstatfs(folder, &status) != 0) return false;
    switch (status.f_type) {
        case EXT4_SUPER_MAGIC:
        case XFS_SUPER_MAGIC:
        case BTRFS_SUPER_MAGIC:
        case F2FS_SUPER_MAGIC:
        case TMPFS_MAGIC:
        case MSDOS_SUPER_MAGIC:
        case EXFAT_SUPER_MAGIC:
            break;
        default:
            return false;
    }
    // No file: fails for another reason unless the call itself is not to be had.
    return ::syncfs(-1) == 0 || errno != ENOSYS;
}

/// Many small files one by one take several times as long as all at once.
Sync bestSync(const Tree& tree, int folder) {
    return tree.size() > 1 && canSyncFileSystem(folder) ? Sync::fileSystem : Sync::eachFile;
}

}  // namespace

bool isCopyable(const Tree& tree) {
    const auto isCopyableEntry = [](const TreeEntry& entry) {
        const auto mode = entry.state.mode;
        return S_ISREG(mode) || S_ISDIR(mode) || S_ISLNK(mode) || S_ISFIFO(mode);
    };
    if (std::all_of(tree.begin(), tree.end(), isCopyableEntry)) return true;
    errno = EOPNOTSUPP;
    return false;
}

bool copyTree(const Tree& tree, TreePlace from, TreePlace to, WatchedCopy& watched) {
    const auto sync = bestSync(tree, to.folder);
    watched.plan(bytesToCopy(tree));
    if (!copyEntries(tree, from, to, sync, watched)) return false;
    watched.tell();
    return mayGoOn(watched.stop()) && finishFolders(tree, from, to, sync) &&
           (sync == Sync::eachFile || ::syncfs(to.folder) == 0);
}

}  // namespace nookwise
