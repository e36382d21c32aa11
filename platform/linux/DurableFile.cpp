#include "platform/linux/DurableFile.h"

#include "platform/linux/OpenAt.h"
#include "platform/linux/WriteAll.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {

bool writeDurableFile(int folder, const char* name, std::string_view contents) {
    const FileDescriptor file(
        ::openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file) return false;
    // Whatever the mask for new files leaves of it, its owner may write it again. Fails where there
    // are no permissions.
    ::fchmod(file.get(), 0600);
    if (writeAll(file.get(), contents) && ::fsync(file.get()) == 0) return true;
    const int reason = errno;
    ::unlinkat(folder, name, 0);
    errno = reason;
    return false;
}

}  // namespace nookwise
