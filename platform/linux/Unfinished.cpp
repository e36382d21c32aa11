#include "platform/linux/Unfinished.h"

#include "platform/linux/DurableFile.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/NewFolder.h"
#include "platform/linux/Publish.h"
#include "platform/linux/RandomName.h"
#include "platform/linux/RegularFile.h"
#include "platform/linux/RemoveTree.h"

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

/// Where there are no renames that spare what is there, a killed process may have left both names.
bool hasBothNames(int folder, const UnfinishedRecord& record, const FileState& state) {
    FileState proper;
    return !state.isFolder() && readState(folder, record.properName.c_str(), proper) &&
           isSameFile(state, proper);
}

bool putBack(int folder, const char* name, const UnfinishedRecord& record, const FileState& state) {
    if (hasBothNames(folder, record, state)) return ::unlinkat(folder, name, 0) == 0;
    return renameNoReplace(folder, name, folder, record.properName.c_str());
}

/// True when nothing that the record stands for is left.
bool settle(const UnfinishedRecord& record) {
    const auto folder = openPath(record.url.parentPath(), O_RDONLY | O_DIRECTORY);
    if (!folder) return false;
    const std::string name(record.url.lastPathComponent());
    FileState state;
    if (!readState(folder.get(), name.c_str(), state)) return errno == ENOENT;
    if (record.inode && *record.inode != state.inode) return false;
    if (record.use == LeftoverUse::remove) return removeTree({folder.get(), name.c_str()});
    return putBack(folder.get(), name.c_str(), record, state) && syncFolder(folder.get());
}

bool isFree(int folder, const char* name) {
    FileState taken;
    return !readState(folder, name, taken) && errno == ENOENT;
}

}  // namespace

Unfinished::Temporary::Temporary(Temporary&& other) noexcept
    : folder_(other.folder_),
      name_(std::move(other.name_)),
      record_(std::exchange(other.record_, FileUrl())),
      isGrowing_(other.isGrowing_) {}

Unfinished::Temporary::~Temporary() {
    if (record_.empty()) return;
    const int reason = errno;
    if (isGrowing_ ? removeTree({folder_, name()}) : isFree(folder_, name())) removeFile(record_);
    errno = reason;
}

bool Unfinished::Temporary::setUse(LeftoverUse use) {
    isGrowing_ = false;
    const auto records = openPath(record_.parentPath(), O_PATH | O_DIRECTORY);
    if (!records) return false;
    const FileDescriptor record(::openat(records.get(),
                                         std::string(record_.lastPathComponent()).c_str(),
                                         O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
    const char mark = useMark(use);
    return record && ::pwrite(record.get(), &mark, 1, 0) == 1 && ::fsync(record.get()) == 0;
}

void Unfinished::Temporary::keep() {
    removeFile(std::exchange(record_, FileUrl()));
}

Unfinished::Unfinished(FileUrl folder)
    : folder_(std::move(folder)), run_(randomName().value_or("").substr(0, runLength)) {}

std::optional<Unfinished::Temporary> Unfinished::temporaryForCopy(const FileUrl& url,
                                                                  int folder) const {
    return recorded(url.parent(), folder,
                    {.url = {},
                     .inode = std::nullopt,
                     .use = LeftoverUse::remove,
                     .properName = std::string(url.lastPathComponent())});
}

std::optional<Unfinished::Temporary> Unfinished::temporaryForSource(const FileUrl& url, int folder,
                                                                    std::uint64_t inode) const {
    return recorded(url.parent(), folder,
                    {.url = {},
                     .inode = inode,
                     .use = LeftoverUse::putBack,
                     .properName = std::string(url.lastPathComponent())});
}

std::optional<Unfinished::Temporary> Unfinished::recorded(const FileUrl& parent, int folder,
                                                          UnfinishedRecord record) const {
    const auto records = openOrMake(folder_);
    auto recordName = records ? randomName() : std::nullopt;
    if (!recordName) return std::nullopt;
    recordName->replace(0, run_.size(), run_);
    auto name = temporaryName(*recordName);
    record.url = parent.append(name);
    if (!writeDurableFile(records.get(), recordName->c_str(), encoded(record))) return std::nullopt;
    // From here on it is removed again, whatever comes.
    Temporary temporary(folder, std::move(name), folder_.append(*recordName), record.use);
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
        if (file->status().st_size == 0 || (record && settle(*record)))
            ::unlinkat(records.get(), entry.name, 0);
    }
}

}  // namespace nookwise
