#include "platform/linux/Publish.h"

#include "platform/linux/OpenAt.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

bool isSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Removes a name without disturbing the errno of what went wrong before.
void removeName(int folder, const char* name, int flags) {
    const int reason = errno;
    ::unlinkat(folder, name, flags);
    errno = reason;
}

/// The file has both names for a moment, and neither is ever missing.
bool linkThenUnlink(int fromFolder, const char* fromName, int toFolder, const char* toName) {
    if (::linkat(fromFolder, fromName, toFolder, toName, 0) != 0) return false;
    // What somebody else took away in between has the new name all the same.
    if (::unlinkat(fromFolder, fromName, 0) == 0 || errno == ENOENT) return true;
    const int reason = errno;
    struct stat source {};
    struct stat named {};
    if (::fstatat(fromFolder, fromName, &source, AT_SYMLINK_NOFOLLOW) == 0 &&
        ::fstatat(toFolder, toName, &named, AT_SYMLINK_NOFOLLOW) == 0 && isSameFile(source, named))
        ::unlinkat(toFolder, toName, 0);
    errno = reason;
    return false;
}

/// For file systems without hard links. An empty file takes the name first; only that file is ever
/// replaced.
bool renameOverPlaceholder(int fromFolder, const char* fromName, int toFolder, const char* toName) {
    const FileDescriptor placeholder(
        ::openat(toFolder, toName, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!placeholder) return false;
    const auto isStillThere = [&] {
        struct stat made {};
        struct stat named {};
        return ::fstat(placeholder.get(), &made) == 0 && made.st_size == 0 &&
               ::fstatat(toFolder, toName, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
               isSameFile(made, named);
    };
    if (!isStillThere()) {
        errno = EEXIST;
        return false;
    }
    if (::renameat(fromFolder, fromName, toFolder, toName) == 0) return true;
    const int reason = errno;
    if (isStillThere()) ::unlinkat(toFolder, toName, 0);
    errno = reason;
    return false;
}

/// The kernel renames a folder over another only while that one is empty.
bool renameOverEmptyFolder(int fromFolder, const char* fromName, int toFolder, const char* toName) {
    if (::mkdirat(toFolder, toName, 0700) != 0) return false;
    if (::renameat(fromFolder, fromName, toFolder, toName) == 0) return true;
    if (errno == ENOTEMPTY) errno = EEXIST;
    removeName(toFolder, toName, AT_REMOVEDIR);
    return false;
}

/// Some network and user-space file systems know only the rename that overwrites.
bool renameWithoutKernelHelp(int fromFolder, const char* fromName, int toFolder,
                             const char* toName) {
    struct stat source {};
    if (::fstatat(fromFolder, fromName, &source, AT_SYMLINK_NOFOLLOW) != 0) return false;
    if (S_ISDIR(source.st_mode))
        return renameOverEmptyFolder(fromFolder, fromName, toFolder, toName);
    if (linkThenUnlink(fromFolder, fromName, toFolder, toName)) return true;
    const bool hasNoLinks =
        errno == EPERM || errno == ENOTSUP || errno == ENOSYS || errno == EMLINK || errno == EINVAL;
    return hasNoLinks && renameOverPlaceholder(fromFolder, fromName, toFolder, toName);
}

}  // namespace

bool renameNoReplace(int fromFolder, const char* fromName, int toFolder, const char* toName) {
    if (::renameat2(fromFolder, fromName, toFolder, toName, RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return false;
    return renameWithoutKernelHelp(fromFolder, fromName, toFolder, toName);
}

bool syncFolder(int folder) {
    // EINVAL: a file system that keeps no folders of its own to be written.
    return ::fsync(folder) == 0 || errno == EINVAL;
}

}  // namespace nookwise
