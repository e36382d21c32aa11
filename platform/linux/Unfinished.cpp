#include "platform/linux/Unfinished.h"

#include "platform/linux/DurableFile.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/NewFolder.h"
#include "platform/linux/Publish.h"
#include "platform/linux/RandomName.h"
#include "platform/linux/RegularFile.h"
#include "platform/linux/RemoveTree.h"
#include "platform/linux/UnfinishedRecord.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace nookwise {
namespace {

// Far longer than any path that a file system makes.
constexpr std::size_t longestRecord = 1 << 20U;
// Digits of a record's name that tell runs apart.
constexpr std::size_t runLength = 8;

void removeFile(const FileUrl& url) {
    const auto folder = openPath(url.parentPath(), O_PATH | O_DIRECTORY);
    if (folder) ::unlinkat(folder.get(), std::string(url.lastPathComponent()).c_str(), 0);
}

FileDescriptor openOrMake(const FileUrl& folder) {
    auto opened = openPath(folder.path(), O_RDONLY | O_DIRECTORY);
    if (opened || errno != ENOENT) return opened;
    if (const auto made = makeFolder(folder, FolderAccess::ownerOnly); !made) {
        errno = made.error().code.value();
        return {};
    }
    return openPath(folder.path(), O_RDONLY | O_DIRECTORY);
}

/// True when nothing that the record stands for is left.
bool removeRecordedItem(const UnfinishedRecord& record) {
    const auto folder = openPath(record.url.parentPath(), O_PATH | O_DIRECTORY);
    if (!folder) return false;
    const std::string name(record.url.lastPathComponent());
    FileState state;
    if (!readState(folder.get(), name.c_str(), state)) return errno == ENOENT;
    if (record.inode && *record.inode != state.inode) return false;
    return removeTree({folder.get(), name.c_str()});
}

}  // namespace

Unfinished::Temporary::Temporary(Temporary&& other) noexcept
    : folder_(other.folder_),
      name_(std::move(other.name_)),
      record_(std::exchange(other.record_, FileUrl())) {}

Unfinished::Temporary::~Temporary() {
    if (record_.empty()) return;
    const int reason = errno;
    if (removeTree({folder_, name()})) removeFile(record_);
    errno = reason;
}

void Unfinished::Temporary::keep() {
    removeFile(std::exchange(record_, FileUrl()));
}

Unfinished::Unfinished(FileUrl folder)
    : folder_(std::move(folder)), run_(randomName().value_or("").substr(0, runLength)) {}

std::optional<Unfinished::Temporary> Unfinished::temporaryIn(
    const FileUrl& url, int folder, std::optional<std::uint64_t> inode) const {
    const auto records = openOrMake(folder_);
    auto recordName = records ? randomName() : std::nullopt;
    if (!recordName) return std::nullopt;
    recordName->replace(0, run_.size(), run_);
    auto name = temporaryName(*recordName);
    const auto text = encoded({.url = url.append(name), .inode = inode});
    if (!writeDurableFile(records.get(), recordName->c_str(), text)) return std::nullopt;
    // From here on it is removed again, whatever comes.
    Temporary temporary(folder, std::move(name), folder_.append(*recordName));
    // Power may fail once the file is there and before the record would have been written.
    if (!syncFolder(records.get())) return std::nullopt;
    return temporary;
}

void Unfinished::removeRecorded() const {
    const auto records = openPath(folder_.path(), O_RDONLY | O_DIRECTORY);
    FolderEntries listing;
    if (!records || !listing.read(records.get(), {})) return;
    for (const auto& entry : listing.entries()) {
        if (!isRandomName(entry.view()) || (!run_.empty() && entry.view().starts_with(run_)))
            continue;
        const auto file = RegularFile::openIn(records.get(), entry.view());
        if (!file) continue;
        const auto record = decoded(entry.view(), file->beginning(longestRecord));
        // The temporary name is used only once its record is whole: an empty one stands for
        // nothing.
        if (file->status().st_size == 0 || (record && removeRecordedItem(*record)))
            ::unlinkat(records.get(), entry.name, 0);
    }
}

}  // namespace nookwise
