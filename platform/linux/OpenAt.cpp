#include "platform/linux/OpenAt.h"

#include <climits>
#include <cstring>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

namespace nookwise {
namespace {

// The longest path the kernel takes, without its terminating NUL.
constexpr std::size_t longestPath = PATH_MAX - 1;

using OpenPiece = int (*)(int folder, const char* path, int flags);

int openFollowing(int folder, const char* path, int flags) {
    return ::openat(folder, path, flags);
}

/// For kernels and sandboxes without openat2: one component at a time.
int openComponents(int folder, std::string_view path, int flags) {
    FileDescriptor current;
    int at = folder;
    for (;;) {
        const auto slash = path.find('/');
        const std::string name(path.substr(0, slash));
        const bool isLast = slash == std::string_view::npos;
        FileDescriptor next(::openat(
            at, name.c_str(), (isLast ? flags : O_PATH | O_DIRECTORY | O_CLOEXEC) | O_NOFOLLOW));
        if (!next) return -1;
        if (isLast) return next.release();
        current = std::move(next);
        at = current.get();
        path.remove_prefix(slash + 1);
    }
}

int openWithoutLinks(int folder, const char* path, int flags) {
    open_how how{};
    how.flags = static_cast<__u64>(flags | O_NOFOLLOW);
    how.resolve = RESOLVE_NO_SYMLINKS;
    const auto fd = ::syscall(SYS_openat2, folder, path, &how, sizeof how);
    if (fd < 0 && (errno == ENOSYS || errno == EPERM)) return openComponents(folder, path, flags);
    return static_cast<int>(fd);
}

FileDescriptor openInPieces(int folder, std::string_view path, int flags, OpenPiece openPiece) {
    FileDescriptor reached;
    while (path.size() > longestPath) {
        const auto slash = path.rfind('/', longestPath);
        if (slash == std::string_view::npos || slash == 0) {
            errno = ENAMETOOLONG;
            return {};
        }
        const std::string piece(path.substr(0, slash));
        FileDescriptor next(openPiece(folder, piece.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!next) return {};
        reached = std::move(next);
        folder = reached.get();
        path.remove_prefix(slash + 1);
    }
    const std::string rest(path);
    return FileDescriptor(openPiece(folder, rest.c_str(), flags | O_CLOEXEC));
}

FileDescriptor openQuietly(int folder, std::string_view path, int flags, OpenPiece openPiece) {
    if (path.find('\0') != std::string_view::npos || path.empty()) {
        errno = EINVAL;
        return {};
    }
    if ((flags & O_PATH) == 0) {
        auto quiet = openInPieces(folder, path, flags | O_NOATIME, openPiece);
        // Only a file's owner may leave its access time alone.
        if (quiet || errno != EPERM) return quiet;
    }
    return openInPieces(folder, path, flags, openPiece);
}

}  // namespace

FileDescriptor openPath(std::string_view path, int flags) {
    return openQuietly(AT_FDCWD, path, flags, openFollowing);
}

FileDescriptor openBelow(int folder, std::string_view relative, int flags) {
    return openQuietly(folder, relative, flags, openWithoutLinks);
}

bool statBelow(int folder, const char* name, struct statx& attributes) {
    constexpr unsigned wanted = STATX_TYPE | STATX_SIZE | STATX_BLOCKS | STATX_MTIME | STATX_BTIME;
    return ::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC, wanted,
                   &attributes) == 0;
}

bool statPath(std::string_view path, struct statx& attributes) {
    if (path.size() <= longestPath)
        return statBelow(AT_FDCWD, std::string(path).c_str(), attributes);
    const auto slash = path.rfind('/');
    const auto folder = openPath(path.substr(0, slash), O_PATH | O_DIRECTORY);
    return folder &&
           statBelow(folder.get(), std::string(path.substr(slash + 1)).c_str(), attributes);
}

}  // namespace nookwise
