#include "platform/linux/NewFile.h"

#include "platform/linux/OpenAt.h"
#include "platform/linux/WriteAll.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr mode_t finished = 0600;
// The sticky bit means nothing on a file, so that nobody else sets it. A temporary name would mark
// it as well, but trashing took a third longer with one.
constexpr mode_t unfinished = finished | S_ISVTX;

bool finish(FileDescriptor file) {
    // Fails where there are no permissions, and then there was nothing to change.
    ::fchmod(file.get(), finished);
    // A network file system may not find out earlier that it has no space.
    return ::close(file.release()) == 0;
}

}  // namespace

bool writeNewFile(int folder, const char* name, std::string_view contents) {
    FileDescriptor file(
        ::openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, unfinished));
    if (!file) return false;
    if (writeAll(file.get(), contents) && finish(std::move(file))) return true;
    const int reason = errno;
    ::unlinkat(folder, name, 0);
    errno = reason;
    return false;
}

bool isUnfinishedFile(int folder, const char* name) {
    struct statx status {};
    return statBelow(folder, name, status) && S_ISREG(status.stx_mode) &&
           (status.stx_mode & S_ISVTX) != 0;
}

}  // namespace nookwise
