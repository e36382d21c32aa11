#include "platform/linux/TrashFolder.h"

#include "platform/Uuid.h"
#include "platform/linux/DirectorySizes.h"
#include "platform/linux/DiskUsage.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/NewFile.h"
#include "platform/linux/Publish.h"
#include "platform/linux/RegularFile.h"
#include "platform/linux/TrashInfo.h"

#include <cerrno>
#include <ctime>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

// Numbers would have to be tried one after another from the first each time.
constexpr int numberedNames = 5;
constexpr int mostNames = 100;

// The list of sizes spares others the summing up; the user waits for it meanwhile.
constexpr std::size_t mostEntriesSummedUp = 10'000;

// The longest path, escaped, and the other lines; those of other programs are not read at all.
constexpr std::size_t longestInfo = 1024 * 1024;

std::string suffixOf(int attempt) {
    if (attempt == 0) return {};
    if (attempt < numberedNames) return " (" + std::to_string(attempt + 1) + ")";
    return " (" + Uuid::random().text().substr(0, 8) + ")";
}

std::string infoName(std::string_view name) {
    return std::string(name).append(trashInfoExtension);
}

std::tm localTime() {
    const auto now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return local;
}

std::int64_t nanoseconds(const struct statx_timestamp& time) {
    constexpr std::int64_t inASecond = 1'000'000'000;
    return time.tv_sec * inASecond + time.tv_nsec;
}

}  // namespace

FileDescriptor openFolderIn(int parent, const char* name, MissingFolders missing) {
    const auto open = [&] {
        return FileDescriptor(
            ::openat(parent, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    };
    auto folder = open();
    if (folder || errno != ENOENT || missing == MissingFolders::leave) return folder;
    if (::mkdirat(parent, name, 0700) != 0 && errno != EEXIST) return {};
    return open();
}

TrashFolder::TrashFolder(ResolvedFolder trash, FileUrl url, FileDescriptor files,
                         FileDescriptor info)
    : trash_(std::move(trash)),
      url_(std::move(url)),
      files_(std::move(files)),
      info_(std::move(info)) {}

std::optional<TrashFolder> TrashFolder::open(ResolvedFolder folder, FileUrl url,
                                             MissingFolders missing) {
    auto files = openFolderIn(folder.folder.get(), "files", missing);
    if (!files) return std::nullopt;
    auto info = openFolderIn(folder.folder.get(), "info", missing);
    if (!info) return std::nullopt;
    return TrashFolder(std::move(folder), std::move(url), std::move(files), std::move(info));
}

// Nothing waits for the disk here. After a power failure the description may be missing or empty
// and the file still in its old place or in the Trash, but the file's own bytes were not touched.
std::optional<std::string> TrashFolder::put(const Item& item, std::string_view run) const {
    const auto info = trashInfo(item.recordedPath, localTime(), run);
    for (int attempt = 0; attempt < mostNames; ++attempt) {
        auto name = nameInTrash(item.name, suffixOf(attempt));
        // The description comes first and reserves the name.
        if (writeNewFile(info_.get(), infoName(name).c_str(), info)) {
            if (renameNoReplace(item.folder, item.name.c_str(), files_.get(), name.c_str())) {
                recordSizeOfFolder(name);
                return name;
            }
            const int reason = errno;
            removeInfo(name);
            errno = reason;
        }
        if (errno != EEXIST) return std::nullopt;
    }
    return std::nullopt;
}

void TrashFolder::recordSizeOfFolder(const std::string& name) const {
    const auto folder = openBelow(files_.get(), name, O_RDONLY | O_DIRECTORY);
    struct statx info {};
    if (!folder || !statBelow(info_.get(), infoName(name).c_str(), info)) return;
    const auto bytes = diskUsage(folder.get(), mostEntriesSummedUp);
    if (!bytes) return;
    recordDirectorySize(trash_.folder.get(), files_.get(), name,
                        {.bytes = *bytes, .described = info.stx_mtime.tv_sec});
}

bool TrashFolder::isTaken(const std::string& name) const {
    struct statx status {};
    // What cannot be looked at may be there.
    return statBelow(files_.get(), name.c_str(), status) || errno != ENOENT;
}

void TrashFolder::removeInfo(const std::string& name) const {
    ::unlinkat(info_.get(), infoName(name).c_str(), 0);
}

void TrashFolder::forget(const std::string& name) const {
    if (isTaken(name)) return;
    removeInfo(name);
    forgetDirectorySize(trash_.folder.get(), files_.get(), name);
}

void TrashFolder::removeLeftovers(const TrashRun& run) const {
    removeUnfinishedDirectorySizes(trash_.folder.get());
    const auto folder = openBelow(info_.get(), ".", O_RDONLY | O_DIRECTORY);
    FolderEntries listing;
    if (!folder || !listing.read(folder.get(), {})) return;
    for (const auto& entry : listing.entries())
        if (isLeftover(entry.view(), run)) ::unlinkat(info_.get(), entry.name, 0);
}

bool TrashFolder::isLeftover(std::string_view fileInInfo, const TrashRun& run) const {
    if (!fileInInfo.ends_with(trashInfoExtension)) return false;
    const auto name = fileInInfo.substr(0, fileInInfo.size() - trashInfoExtension.size());
    const std::string file(fileInInfo);
    struct statx status {};
    // What was written since may be of a file that is just on its way.
    if (isTaken(std::string(name)) || !statBelow(info_.get(), file.c_str(), status) ||
        nanoseconds(status.stx_mtime) > run.started)
        return false;
    if (isUnfinishedFile(info_.get(), file.c_str())) return true;
    const auto info = readSmallFile(info_.get(), fileInInfo, longestInfo);
    const auto writer = info ? runInTrashInfo(*info) : std::string_view();
    return !writer.empty() && writer != run.mark;
}

}  // namespace nookwise
