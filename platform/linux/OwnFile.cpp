#include "platform/linux/OwnFile.h"

#include "platform/linux/DurableFile.h"
#include "platform/linux/Failure.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/OpenAt.h"
#include "platform/linux/Publish.h"
#include "platform/linux/RandomName.h"

#include <array>
#include <cerrno>
#include <climits>
#include <optional>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

// As many as the kernel follows on one path.
constexpr int mostLinks = 40;

constexpr std::string_view prefix = ".nookwise-";
constexpr std::string_view suffix = ".new";

/// Begins the names that this process gives: another thread of it may be writing one.
const std::string& runMark() {
    constexpr std::size_t length = 8;
    static const std::string mark = randomName().value_or("").substr(0, length);
    return mark;
}

/// Whether another process gave the name.
bool isLeftoverName(std::string_view name) {
    if (!name.starts_with(prefix) || !name.ends_with(suffix)) return false;
    name.remove_prefix(prefix.size());
    return !name.starts_with(runMark()) && name.size() > suffix.size() &&
           isRandomName(name.substr(0, name.size() - suffix.size()));
}

/// A file's name in its open folder. The file need not be there.
struct FilePlace {
    FileDescriptor folder;
    std::string name;
};

FilePlace placeOf(int start, std::string_view path) {
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return {FileDescriptor(::openat(start, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
                std::string(path)};
    const std::string folder(path.substr(0, slash + 1));
    auto opened =
        path.size() < PATH_MAX && start != AT_FDCWD
            ? FileDescriptor(::openat(start, folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
            : openPath(folder, O_RDONLY | O_DIRECTORY);
    return {std::move(opened), std::string(path.substr(slash + 1))};
}

/// The place that remains after all links that end the path. None with errno set.
std::optional<FilePlace> followed(const FileUrl& url) {
    auto place = placeOf(AT_FDCWD, url.path());
    for (int links = 0; links <= mostLinks; ++links) {
        if (!place.folder) return std::nullopt;
        std::array<char, PATH_MAX> target{};
        const auto length =
            ::readlinkat(place.folder.get(), place.name.c_str(), target.data(), target.size());
        if (length < 0 && (errno == EINVAL || errno == ENOENT)) return place;
        if (length < 0) return std::nullopt;
        auto next = placeOf(place.folder.get(),
                            std::string_view(target.data(), static_cast<std::size_t>(length)));
        place = std::move(next);
    }
    errno = ELOOP;
    return std::nullopt;
}

/// Whether a regular file is there, or nothing. False with errno set.
bool isReplaceable(const FilePlace& place) {
    struct stat status {};
    if (::fstatat(place.folder.get(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT && !place.name.empty();
    if (S_ISREG(status.st_mode)) return true;
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return false;
}

bool replace(const FilePlace& place, const ContentsSource& contents) {
    auto random = randomName();
    if (!random) return false;
    random->replace(0, runMark().size(), runMark());
    const auto temporary = std::string(prefix) + *random + std::string(suffix);
    const int folder = place.folder.get();
    if (!writeDurableFile(folder, temporary.c_str(), contents)) return false;
    if (::renameat(folder, temporary.c_str(), folder, place.name.c_str()) == 0)
        return syncFolder(folder);
    const int reason = errno;
    ::unlinkat(folder, temporary.c_str(), 0);
    errno = reason;
    return false;
}

void removeReplacements(int folder, const FolderEntries& listing) {
    for (const auto& entry : listing.entries()) {
        struct stat status {};
        if (isLeftoverName(entry.view()) &&
            ::fstatat(folder, entry.name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(status.st_mode) && status.st_uid == ::geteuid())
            ::unlinkat(folder, entry.name, 0);
    }
}

}  // namespace

Result<std::monostate> replaceOwnFile(const FileUrl& url, const ContentsSource& contents) {
    const auto place = followed(url);
    if (!place || !isReplaceable(*place) || !replace(*place, contents))
        return failure(url, "replace");
    return std::monostate{};
}

void removeUnfinishedReplacements(const FileUrl& folder) {
    const auto opened = openPath(folder.path(), O_RDONLY | O_DIRECTORY);
    FolderEntries listing;
    if (!opened || !listing.read(opened.get(), {})) return;
    removeReplacements(opened.get(), listing);
    // Where a file is a link, its replacement grew beside the file that the link leads to.
    for (const auto& entry : listing.entries()) {
        if (entry.type != EntryType::other && entry.type != EntryType::unknown) continue;
        const auto place = followed(folder.append(entry.view()));
        FolderEntries beside;
        if (place && beside.read(place->folder.get(), {}))
            removeReplacements(place->folder.get(), beside);
    }
}

}  // namespace nookwise
