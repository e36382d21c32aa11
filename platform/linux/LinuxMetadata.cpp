#include "platform/linux/LinuxMetadata.h"

#include "platform/linux/OpenAt.h"
#include "platform/linux/Origins.h"
#include "platform/linux/PngSoftware.h"
#include "platform/linux/RegularFile.h"
#include "platform/linux/ToolNames.h"

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace nookwise {
namespace {

// Programs register a file that they save, a download for one, when it is chosen or complete.
constexpr Seconds writingTime{60};

// Texts come before the picture's data. Colour profiles may come before the texts and are seldom
// beyond a few kilobytes.
constexpr std::size_t headerBytes = 64 * 1024;

struct FileTimes {
    /// None where the file system keeps none.
    std::optional<Date> birth;
    /// None where it tells nothing of the file's use.
    std::optional<Date> access;
};

Date dateOf(const struct statx_timestamp& time) {
    return Date{Seconds{static_cast<double>(time.tv_sec) + time.tv_nsec / 1e9}};
}

bool keepsAccessTimes(int descriptor) {
    struct statvfs volume {};
    return ::fstatvfs(descriptor, &volume) == 0 && (volume.f_flag & ST_NOATIME) == 0;
}

std::optional<FileTimes> timesOf(const FileUrl& url) {
    const auto descriptor = openPath(url.path(), O_PATH | O_NOFOLLOW);
    struct statx status {};
    if (!descriptor || ::statx(descriptor.get(), "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT,
                               STATX_TYPE | STATX_ATIME | STATX_BTIME, &status) != 0) {
        return std::nullopt;
    }
    FileTimes times;
    if ((status.stx_mask & STATX_BTIME) != 0) times.birth = dateOf(status.stx_btime);
    // Whoever lists a folder or follows a link moves its access time.
    const bool isRead = S_ISREG(status.stx_mode) && (status.stx_mask & STATX_ATIME) != 0;
    if (isRead && keepsAccessTimes(descriptor.get())) times.access = dateOf(status.stx_atime);
    return times;
}

}  // namespace

LinuxMetadata::LinuxMetadata(const BaseFolders& folders)
    : recentlyUsed_(folders.dataHome.append("recently-used.xbel")) {}

std::optional<Date> LinuxMetadata::lastUsed(const FileUrl& url) const {
    const auto times = timesOf(url);
    if (!times) return std::nullopt;
    const auto opened = recentlyUsed_.lastOpening(url);
    if (opened && (!times->birth || *opened > *times->birth + writingTime)) return opened;
    if (times->birth && times->access && *times->access > *times->birth) return times->access;
    return std::nullopt;
}

bool LinuxMetadata::isScreenCapture(const FileUrl& url) const {
    const auto file = RegularFile::open(url);
    if (!file) return false;
    const auto header = file->beginning(headerBytes);
    const auto software = pngSoftware(header);
    return std::any_of(software.begin(), software.end(), namesCaptureTool);
}

std::vector<std::string> LinuxMetadata::whereFrom(const FileUrl& url) const {
    return originsOf(url);
}

}  // namespace nookwise
