#include "platform/linux/VolumeTrash.h"

#include "platform/linux/MountPoint.h"

#include <cerrno>
#include <string>
#include <utility>

#include <sys/stat.h>

namespace nookwise {
namespace {

constexpr const char* sharedName = ".Trash";
constexpr std::string_view ownPrefix = ".Trash-";

std::string ownName(uid_t user) {
    return std::string(ownPrefix) + std::to_string(user);
}

bool isOwnedBy(int folder, uid_t user) {
    struct stat status {};
    return ::fstat(folder, &status) == 0 && status.st_uid == user;
}

bool isSticky(int folder) {
    struct stat status {};
    return ::fstat(folder, &status) == 0 && (status.st_mode & S_ISVTX) != 0;
}

/// The Trash `name` in the open folder `parent`, whose URL is `parentUrl`.
std::optional<TrashFolder> trashIn(int parent, const FileUrl& parentUrl, const std::string& name,
                                   uid_t user, MissingFolders missing) {
    auto folder = openFolderIn(parent, name.c_str(), missing);
    if (!folder) return std::nullopt;
    // Another user could look into it, or lead us elsewhere.
    if (!isOwnedBy(folder.get(), user)) {
        errno = EPERM;
        return std::nullopt;
    }
    const auto url = parentUrl.append(name);
    return TrashFolder::open({std::move(folder), url}, url, missing);
}

}  // namespace

std::optional<TrashFolder> sharedVolumeTrash(const ResolvedFolder& topDirectory, uid_t user,
                                             MissingFolders missing) {
    const auto shared = openFolderIn(topDirectory.folder.get(), sharedName, MissingFolders::leave);
    if (!shared) return std::nullopt;
    // Without it, any user could replace the folder of another one.
    if (!isSticky(shared.get())) {
        errno = EPERM;
        return std::nullopt;
    }
    return trashIn(shared.get(), topDirectory.url.append(sharedName), std::to_string(user), user,
                   missing);
}

std::optional<TrashFolder> ownVolumeTrash(const ResolvedFolder& topDirectory, uid_t user,
                                          MissingFolders missing) {
    return trashIn(topDirectory.folder.get(), topDirectory.url, ownName(user), user, missing);
}

std::optional<TrashFolder> volumeTrash(const ResolvedFolder& topDirectory, uid_t user) {
    if (auto shared = sharedVolumeTrash(topDirectory, user, MissingFolders::make)) return shared;
    return ownVolumeTrash(topDirectory, user, MissingFolders::make);
}

bool isVolumeTrash(const ResolvedFolder& folder, uid_t user) {
    const auto name = folder.url.lastPathComponent();
    const bool isShared =
        name == std::to_string(user) && folder.url.parent().lastPathComponent() == sharedName;
    return (isShared || name == ownName(user)) && isOwnedBy(folder.folder.get(), user);
}

bool leadsIntoVolumeTrash(const FileUrl& real, const ResolvedFolder& parent) {
    // Nearly every path is told apart by its text alone.
    if (real.path().find("/.Trash") == std::string_view::npos) return false;
    const auto top = topDirectoryOf(parent);
    if (!top) return false;
    auto below = real.path().substr(top->url.path().size());
    if (below.starts_with('/')) below.remove_prefix(1);
    const auto first = below.substr(0, below.find('/'));
    return first == sharedName || first.starts_with(ownPrefix);
}

}  // namespace nookwise
