#include "platform/linux/NewFolder.h"

#include "platform/linux/Failure.h"
#include "platform/linux/OpenAt.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

FileDescriptor enter(int folder, const char* name) {
    return FileDescriptor(::openat(folder, name, O_PATH | O_DIRECTORY | O_CLOEXEC));
}

/// A link to a folder is as good as a folder.
FileDescriptor enterOrMake(int folder, const std::string& name, mode_t permissions) {
    auto there = enter(folder, name.c_str());
    if (there || errno != ENOENT) return there;
    // Another process may make it first. A link that leads nowhere is in the way.
    const bool isTaken = ::mkdirat(folder, name.c_str(), permissions) != 0;
    if (isTaken && errno != EEXIST) return {};
    there = enter(folder, name.c_str());
    if (!there && isTaken && errno == ENOENT) errno = EEXIST;
    return there;
}

}  // namespace

Result<std::monostate> makeFolder(const FileUrl& url, FolderAccess access) {
    if (openPath(url.path(), O_PATH | O_DIRECTORY)) return std::monostate{};
    if (errno != ENOENT || url.empty()) return failure(url, "make folder");
    // One folder after another, because the path may be longer than the system takes at once.
    auto reached = enter(AT_FDCWD, "/");
    auto rest = url.path().substr(1);
    while (reached && !rest.empty()) {
        const auto slash = rest.find('/');
        const std::string name(rest.substr(0, slash));
        rest.remove_prefix(slash == std::string_view::npos ? rest.size() : slash + 1);
        if (name.empty()) continue;
        const bool isClosed = rest.empty() && access == FolderAccess::ownerOnly;
        auto next = enterOrMake(reached.get(), name, isClosed ? 0700 : 0777);
        reached = std::move(next);
    }
    if (!reached) return failure(url, "make folder");
    return std::monostate{};
}

}  // namespace nookwise
