#include "platform/linux/FolderEntries.h"

#include "platform/Text.h"
#include "platform/linux/OpenAt.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr std::size_t listingPiece = 65'536;
// Sorting this many names takes a few milliseconds: how often a stop request is looked for.
constexpr std::ptrdiff_t sortRun = 32'768;

// The folders that macOS shows as one file and that travel between computers.
constexpr std::array<std::string_view, 24> packageExts{
    "app",       "appex",         "bundle",        "download", "dsym",       "fcpbundle",
    "framework", "imovielibrary", "key",           "kext",     "logicx",     "mpkg",
    "numbers",   "pages",         "photoslibrary", "pkg",      "playground", "plugin",
    "prefpane",  "rtfd",          "saver",         "scptd",    "xcodeproj",  "xcworkspace"};

struct KernelEntry {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t recordLength;
    std::uint8_t type;
    char name[1];
};

EntryType entryType(std::uint8_t type) {
    switch (type) {
        case DT_REG:
            return EntryType::regular;
        case DT_DIR:
            return EntryType::folder;
        case DT_UNKNOWN:
            return EntryType::unknown;
        default:
            return EntryType::other;
    }
}

bool isSelfOrParent(const char* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

std::optional<Date> date(const struct statx& status, unsigned mask, const statx_timestamp& time) {
    if ((status.stx_mask & mask) == 0) return std::nullopt;
    return Date(Seconds(static_cast<double>(time.tv_sec) + time.tv_nsec * 1e-9));
}

/// A file system may claim anything.
std::int64_t allocatedBytes(std::uint64_t blocks) {
    constexpr std::uint64_t blockSize =
        512;  // the unit of the count, whatever the file system's own
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    return static_cast<std::int64_t>(blocks > most / blockSize ? most : blocks * blockSize);
}

/// Sparse files can claim more bytes together than a figure holds.
void addUpTo(std::int64_t& sum, std::int64_t size) {
    if (__builtin_add_overflow(sum, size, &sum)) sum = std::numeric_limits<std::int64_t>::max();
}

}  // namespace

bool FolderEntries::read(int folder, const std::stop_token& stop) {
    raw_.clear();
    entries_.clear();
    for (std::size_t used = 0;;) {
        if (stop.stop_requested()) {
            errno = ECANCELED;
            return false;
        }
        raw_.resize(used + listingPiece);
        const auto count = ::syscall(SYS_getdents64, folder, raw_.data() + used, listingPiece);
        if (count < 0) return false;
        used += static_cast<std::size_t>(count);
        raw_.resize(used);
        if (count == 0) break;
    }
    for (std::size_t at = 0; at < raw_.size();) {
        const auto* const entry = reinterpret_cast<const KernelEntry*>(raw_.data() + at);
        at += entry->recordLength;
        const char* const name = entry->name;
        if (isSelfOrParent(name)) continue;
        entries_.push_back(
            {name, static_cast<std::uint32_t>(std::strlen(name)), entryType(entry->type)});
    }
    return true;
}

bool FolderEntries::keepVisibleSorted(const std::stop_token& stop) {
    std::erase_if(entries_, [](const Entry& entry) { return entry.isHidden(); });
    const auto before = [](const Entry& a, const Entry& b) { return a.view() < b.view(); };
    const auto count = static_cast<std::ptrdiff_t>(entries_.size());
    const auto at = [&](std::ptrdiff_t position) {
        return entries_.begin() + std::min(position, count);
    };
    for (std::ptrdiff_t start = 0; start < count; start += sortRun) {
        if (stop.stop_requested()) return false;
        std::sort(at(start), at(start + sortRun), before);
    }
    for (auto run = sortRun; run < count; run *= 2) {
        for (std::ptrdiff_t start = 0; start + run < count; start += 2 * run) {
            if (stop.stop_requested()) return false;
            std::inplace_merge(at(start), at(start + run), at(start + 2 * run), before);
        }
    }
    return true;
}

const std::vector<std::string_view>& FolderEntries::names() {
    names_.clear();
    for (const auto& entry : entries_) names_.push_back(entry.view());
    return names_;
}

FileAttributes attributesOf(const struct statx& status, FileType type) {
    FileAttributes attributes;
    attributes.type = type;
    if ((status.stx_mask & STATX_BLOCKS) != 0) {
        attributes.allocatedSize = allocatedBytes(status.stx_blocks);
    }
    if ((status.stx_mask & STATX_SIZE) != 0)
        attributes.fileSize = static_cast<std::int64_t>(status.stx_size);
    attributes.modified = date(status, STATX_MTIME, status.stx_mtime);
    attributes.added = date(status, STATX_BTIME, status.stx_btime);
    return attributes;
}

FileType typeOf(const struct statx& status) {
    if (S_ISREG(status.stx_mode)) return FileType::regular;
    return S_ISDIR(status.stx_mode) ? FileType::folder : FileType::other;
}

bool namesPackage(std::string_view folderName) {
    const auto extension = extensionOf(folderName);
    if (extension.empty()) return false;
    const auto lower = lowercased(extension);
    return std::any_of(packageExts.begin(), packageExts.end(),
                       [&](std::string_view candidate) { return candidate == lower; });
}

PackageContents packageContents(int folder, const std::stop_token& stop) {
    PackageContents sums;
    FolderEntries listing;
    std::vector<std::string> pending{"."};
    while (!pending.empty() && !stop.stop_requested()) {
        const auto relative = std::move(pending.back());
        pending.pop_back();
        const auto opened = openBelow(folder, relative, O_RDONLY | O_DIRECTORY);
        if (!opened || !listing.read(opened.get(), stop)) continue;
        for (const auto& entry : listing.entries()) {
            if (stop.stop_requested()) return sums;
            struct statx status {};
            if (entry.type == EntryType::other || !statBelow(opened.get(), entry.name, status))
                continue;
            if (S_ISDIR(status.stx_mode)) {
                pending.push_back(relative + "/" + entry.name);
            } else if (S_ISREG(status.stx_mode)) {
                const auto attributes = attributesOf(status, FileType::regular);
                addUpTo(sums.allocatedSize, attributes.allocatedSize.value_or(0));
                addUpTo(sums.fileSize, attributes.fileSize.value_or(0));
            }
        }
    }
    return sums;
}

}  // namespace nookwise
