#include "platform/linux/FileState.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

namespace nookwise {
namespace {

timespec time(const statx_timestamp& stamp) {
    return {.tv_sec = stamp.tv_sec, .tv_nsec = static_cast<long>(stamp.tv_nsec)};
}

bool isSameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

}  // namespace

bool readState(int folder, const char* name, FileState& state) {
    struct statx status {};
    if (::statx(folder, name, AT_EMPTY_PATH | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
                STATX_BASIC_STATS, &status) != 0)
        return false;
    state = {.device = makedev(status.stx_dev_major, status.stx_dev_minor),
             .inode = status.stx_ino,
             .linkCount = status.stx_nlink,
             .size = static_cast<std::int64_t>(status.stx_size),
             .blocks = static_cast<std::int64_t>(status.stx_blocks),
             .mode = status.stx_mode,
             .owner = status.stx_uid,
             .group = status.stx_gid,
             .accessed = time(status.stx_atime),
             .modified = time(status.stx_mtime),
             .changed = time(status.stx_ctime),
             .isMountPoint = (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0,
             .isLocked = (status.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0};
    return true;
}

bool isSameFile(const FileState& a, const FileState& b) {
    return a.device == b.device && a.inode == b.inode && (a.mode & S_IFMT) == (b.mode & S_IFMT);
}

bool hasSameContents(const FileState& a, const FileState& b) {
    return isSameFile(a, b) && a.size == b.size && isSameTime(a.modified, b.modified);
}

bool isUnchanged(const FileState& a, const FileState& b) {
    return hasSameContents(a, b) && isSameTime(a.changed, b.changed);
}

}  // namespace nookwise
