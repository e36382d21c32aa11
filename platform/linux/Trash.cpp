#include "platform/linux/Trash.h"

#include "platform/Uuid.h"
#include "platform/linux/Failure.h"
#include "platform/linux/MountPoint.h"
#include "platform/linux/ResolvedFolder.h"
#include "platform/linux/VolumeTrash.h"

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// What is to be trashed.
struct Source {
    FileUrl url;
    ResolvedFolder parent;
    /// The parent's path without links, and the name.
    FileUrl real;
};

bool namesAFile(const FileUrl& url) {
    const auto name = url.lastPathComponent();
    return url.path().starts_with('/') && name != "/" && name != "." && name != ".." &&
           name.find('\0') == std::string_view::npos;
}

/// Makes a folder and those above it for their owner alone, as the user's data folders are to be.
bool makeOwnFolders(const FileUrl& url) {
    const std::string path(url.path());
    for (auto slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        if (::mkdir(path.substr(0, slash).c_str(), 0700) != 0 && errno != EEXIST) return false;
        if (slash == std::string::npos) return true;
    }
}

/// The nearest folder above `url` that is there.
FileDescriptor folderAbove(FileUrl url) {
    FileDescriptor folder;
    while (!folder && url.path() != "/") {
        url = url.parent();
        folder = openPath(url.path(), O_PATH | O_DIRECTORY);
    }
    return folder;
}

Result<FileUrl> put(const TrashFolder& trash, const Source& source, std::string_view recordedPath,
                    std::string_view run) {
    if (source.real.isWithin(trash.realUrl()) || trash.realUrl().isWithin(source.real))
        return failure(source.url, "trash", EINVAL);
    const auto name = trash.put({.folder = source.parent.folder.get(),
                                 .name = std::string(source.url.lastPathComponent()),
                                 .recordedPath = recordedPath},
                                run);
    if (!name) return failure(source.url, "trash");
    return trash.url().append("files").append(*name);
}

/// Into the Trash in the top directory of its volume. Its place is recorded relative to that, which
/// stays true wherever the volume is mounted.
Result<FileUrl> putOnVolume(const Source& source, std::string_view run) {
    const auto top = topDirectoryOf(source.parent);
    if (!top) return failure(source.url, "trash");
    const auto trash = volumeTrash(*top, ::geteuid());
    if (!trash) return failure(source.url, "trash");
    auto relative = source.real.path().substr(top->url.path().size());
    if (relative.starts_with('/')) relative.remove_prefix(1);
    return put(*trash, source, relative, run);
}

std::int64_t fileTimeNow() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    constexpr std::int64_t inASecond = 1'000'000'000;
    return now.tv_sec * inASecond + now.tv_nsec;
}

}  // namespace

Trash::Trash(FileUrl homeTrash)
    : homeTrash_(std::move(homeTrash)), run_{Uuid::random().text(), fileTimeNow()} {}

Result<FileUrl> Trash::trash(const FileUrl& url) const {
    if (!namesAFile(url)) return failure(url, "trash", EINVAL);
    auto parent = resolveFolder(url.parentPath());
    if (!parent) return failure(url, "trash");
    auto real = parent->url.append(url.lastPathComponent());
    const Source source{url, std::move(*parent), std::move(real)};
    // The home Trash may itself be a link, which must stay, or on a volume mounted below.
    if (homeTrash_.isWithin(source.real) || leadsIntoVolumeTrash(source.real, source.parent))
        return failure(url, "trash", EINVAL);

    if (const auto home = homeTrashBeside(source.parent)) {
        // The user knows the path with its links, and they lead to the same place tomorrow.
        auto trashed =
            put(*home, source, (isPlainPath(url.path()) ? url : source.real).path(), run_.mark);
        if (trashed || trashed.error().code != std::errc::cross_device_link) return trashed;
    } else if (errno != EXDEV) {
        return failure(url, "trash");
    }
    return putOnVolume(source, run_.mark);
}

/// None with errno EXDEV where it is on another volume than `folder`.
std::optional<TrashFolder> Trash::homeTrashBeside(const ResolvedFolder& folder) const {
    auto home = resolveFolder(homeTrash_.path());
    if (!home) {
        const int reason = errno;
        if (!onSameMount(folderAbove(homeTrash_).get(), folder.folder.get())) return std::nullopt;
        errno = reason;
        if (reason != ENOENT || !makeOwnFolders(homeTrash_)) return std::nullopt;
        home = resolveFolder(homeTrash_.path());
        if (!home) return std::nullopt;
    }
    if (!onSameMount(home->folder.get(), folder.folder.get())) return std::nullopt;
    return TrashFolder::open(std::move(*home), homeTrash_, MissingFolders::make);
}

bool Trash::isHomeTrash(const ResolvedFolder& folder) const {
    const auto home = resolveFolder(homeTrash_.path());
    return home && home->url == folder.url;
}

void Trash::forget(const FileUrl& inTrash) const {
    if (!inTrash.parentPath().ends_with("/files")) return;
    const auto url = inTrash.parent().parent();
    auto folder = resolveFolder(url.path());
    if (!folder || !(isHomeTrash(*folder) || isVolumeTrash(*folder, ::geteuid()))) return;
    const auto trash = TrashFolder::open(std::move(*folder), url, MissingFolders::leave);
    if (trash) trash->forget(std::string(inTrash.lastPathComponent()));
}

void Trash::removeLeftovers(const std::stop_token& stop) const {
    if (auto home = resolveFolder(homeTrash_.path())) {
        const auto trash = TrashFolder::open(std::move(*home), homeTrash_, MissingFolders::leave);
        if (trash) trash->removeLeftovers(run_);
    }
    for (const auto& mountPoint : localMountPoints()) {
        if (stop.stop_requested()) return;
        const auto top = resolveFolder(mountPoint.path());
        if (!top) continue;
        for (const auto open : {sharedVolumeTrash, ownVolumeTrash})
            if (const auto trash = open(*top, ::geteuid(), MissingFolders::leave))
                trash->removeLeftovers(run_);
    }
}

}  // namespace nookwise
