#include "platform/linux/MountPoint.h"

#include "platform/linux/RegularFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

// Tens of thousands of mounts.
constexpr std::size_t mostMountInfo = 16 * 1024 * 1024;

struct Mount {
    bool hasId = false;
    std::uint64_t id = 0;
    std::uint32_t deviceMajor = 0;
    std::uint32_t deviceMinor = 0;

    bool operator==(const Mount& other) const {
        // The same file system may be mounted twice, and no rename leads across.
        if (hasId && other.hasId) return id == other.id;
        return deviceMajor == other.deviceMajor && deviceMinor == other.deviceMinor;
    }
};

std::optional<Mount> mountOf(int folder) {
    struct statx status {};
    if (::statx(folder, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC, STATX_MNT_ID,
                &status) != 0)
        return std::nullopt;
    // Kernels before 5.8 do not tell mounts apart.
    return Mount{.hasId = (status.stx_mask & STATX_MNT_ID) != 0,
                 .id = status.stx_mnt_id,
                 .deviceMajor = status.stx_dev_major,
                 .deviceMinor = status.stx_dev_minor};
}

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    for (;;) {
        const auto space = line.find(' ');
        fields.push_back(line.substr(0, space));
        if (space == std::string_view::npos) return fields;
        line.remove_prefix(space + 1);
    }
}

/// The kernel writes spaces, tabs, newlines and backslashes as \ooo.
std::string withoutOctalEscapes(std::string_view text) {
    constexpr auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
    std::string plain;
    while (!text.empty()) {
        if (text.size() >= 4 && text[0] == '\\' &&
            std::all_of(text.begin() + 1, text.begin() + 4, isOctal)) {
            plain += static_cast<char>((text[1] - '0') * 64 + (text[2] - '0') * 8 + text[3] - '0');
            text.remove_prefix(4);
        } else {
            plain += text[0];
            text.remove_prefix(1);
        }
    }
    return plain;
}

/// Network and user-space file systems may hang, and pseudo file systems hold no user's files.
bool answersAtOnce(std::string_view type, std::string_view source) {
    constexpr std::array<std::string_view, 4> withoutDevice{"tmpfs", "overlay", "zfs", "bcachefs"};
    if (std::find(withoutDevice.begin(), withoutDevice.end(), type) != withoutDevice.end())
        return true;
    // "fuseblk" is NTFS and the like on a disk; "fuse" may name /dev/fuse as its source.
    if (type == "fuse" || type.starts_with("fuse.")) return false;
    return source.starts_with("/dev/");
}

std::optional<FileUrl> localMountPoint(std::string_view line) {
    const auto fields = fieldsOf(line);
    // Optional fields end with a dash; the type and the source follow.
    constexpr std::size_t mountPointField = 4;
    constexpr std::size_t firstOptionalField = 6;
    if (fields.size() <= firstOptionalField) return std::nullopt;
    const auto dash = std::find(fields.begin() + firstOptionalField, fields.end(), "-");
    if (fields.end() - dash < 3 || !answersAtOnce(dash[1], dash[2])) return std::nullopt;
    return FileUrl(withoutOctalEscapes(fields[mountPointField]));
}

}  // namespace

bool onSameMount(int folder, int other) {
    const auto mount = mountOf(folder);
    const auto otherMount = mount ? mountOf(other) : std::nullopt;
    if (!otherMount) return false;
    errno = EXDEV;
    return *mount == *otherMount;
}

std::optional<ResolvedFolder> topDirectoryOf(const ResolvedFolder& folder) {
    constexpr int asPlace = O_PATH | O_DIRECTORY | O_CLOEXEC;
    ResolvedFolder top{FileDescriptor(::openat(folder.folder.get(), ".", asPlace)), folder.url};
    while (top.folder && top.url.path() != "/") {
        FileDescriptor above(::openat(top.folder.get(), "..", asPlace));
        if (!above) return std::nullopt;
        if (!onSameMount(top.folder.get(), above.get())) {
            if (errno != EXDEV) return std::nullopt;
            return top;
        }
        top = {std::move(above), top.url.parent()};
    }
    if (!top.folder) return std::nullopt;
    return top;
}

std::vector<FileUrl> localMountPoints(std::string_view mountInfo) {
    std::vector<FileUrl> found;
    while (!mountInfo.empty()) {
        const auto end = std::min(mountInfo.find('\n'), mountInfo.size());
        if (auto mountPoint = localMountPoint(mountInfo.substr(0, end)))
            found.push_back(std::move(*mountPoint));
        mountInfo.remove_prefix(std::min(end + 1, mountInfo.size()));
    }
    // A mount may hide another one.
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::vector<FileUrl> localMountPoints() {
    const auto mountInfo = readSmallFile(FileUrl("/proc/self/mountinfo"), mostMountInfo);
    return localMountPoints(mountInfo.value_or(std::string()));
}

}  // namespace nookwise
