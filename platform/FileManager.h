// What the application needs of the file system.
#pragma once

#include "platform/Contents.h"
#include "platform/CopyWatch.h"
#include "platform/Date.h"
#include "platform/FileUrl.h"
#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

enum class FileType {
    regular,
    folder,
    /// A folder that counts as one file, such as report.pages.
    package,
    /// A link, a pipe, a socket or a device.
    other,
};

/// Whether a file that a cloud service manages has its bytes on this computer.
enum class CloudState {
    local,
    /// Managed by a cloud service and downloaded in its newest version.
    current,
    /// Only in the cloud, or on its way.
    notHere,
};

/// What the file system says about one file. A missing value means that the file system keeps none.
struct FileAttributes {
    FileType type = FileType::other;
    CloudState cloud = CloudState::local;
    /// Bytes on disk; of a package, the sum over all that is inside.
    std::optional<std::int64_t> allocatedSize;
    /// Bytes in the file.
    std::optional<std::int64_t> fileSize;
    std::optional<Date> modified;
    /// When the file came into its folder.
    std::optional<Date> added;

    friend bool operator==(const FileAttributes&, const FileAttributes&) = default;
};

struct FoundFile {
    FileUrl url;
    FileAttributes attributes;
};

/// Which folders an enumeration leaves alone. Both tests may be called from several threads at once
/// and are asked about the folders below the root, never about the root itself.
struct EnumerationRules {
    /// Asked before a folder is opened.
    std::function<bool(const FileUrl& folder)> skipsFolder;
    /// Asked with the names of everything in a folder, hidden entries included.
    std::function<bool(std::span<const std::string_view> entryNames)> skipsFolderHolding;
};

/// Which file a path leads to, however many paths lead there.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// A regular file open for reading. Used by one thread at a time; closes the file when destroyed.
/// Reading does not make the file look used.
class FileReader {
  public:
    /// What the file system says of the open file, now.
    struct State {
        FileIdentity identity;
        std::uint64_t linkCount = 1;
        std::int64_t size = 0;
        Date modified{};

        friend bool operator==(const State&, const State&) = default;
    };

    virtual ~FileReader() = default;
    virtual Result<State> state() const = 0;
    /// Reads on from where the last read ended. Fewer bytes than asked for only at the end of the
    /// file.
    virtual Result<std::size_t> read(std::span<std::byte> buffer) = 0;
};

/// Who may enter a new folder.
enum class FolderAccess {
    /// Whoever the user's settings let.
    usual,
    /// Its owner alone. The folders made above it are `usual`.
    ownerOnly,
};

struct VolumeFigures {
    /// None where the file system gives no such value.
    std::optional<std::int64_t> availableBytes;
    std::optional<std::int64_t> totalBytes;
};

/// All operations may be called from any thread. None of them follows a link below the given URL.
/// Who holds it as const can look, but change nothing.
class FileManager {
  public:
    virtual ~FileManager() = default;

    /// Calls `found` on the calling thread for each regular file and each package below `root`,
    /// folder by folder, in the order of the names' bytes, each folder's contents where its name
    /// stands. Hidden entries are left out, and so are links, pipes, sockets, devices, what is
    /// inside packages, and whatever cannot be read. `root` itself may be a link. Fails when `root`
    /// cannot be listed. After a stop request it returns at once with what it had reported.
    virtual Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                             const std::function<void(FoundFile&&)>& found,
                                             std::stop_token stop) const = 0;

    /// The immediate entries of a folder that are not hidden, in the order of the names' bytes. A
    /// package's sizes are missing: summing them up may take longer than listing. Fails soon after
    /// a stop request.
    virtual Result<std::vector<FoundFile>> list(const FileUrl& folder,
                                                std::stop_token stop) const = 0;

    /// May take long for a package, whose contents are summed up; fails soon after a stop request.
    virtual Result<FileAttributes> attributes(const FileUrl& url, std::stop_token stop) const = 0;

    Result<FileAttributes> attributes(const FileUrl& url) const { return attributes(url, {}); }

    /// Where a path really leads, every link on it followed.
    virtual Result<FileUrl> resolved(const FileUrl& url) const = 0;

    /// Fails on everything but a regular file; never waits for a pipe's other end.
    virtual Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const = 0;

    /// The figures of the volume that holds `url`.
    virtual Result<VolumeFigures> volumeFigures(const FileUrl& url) const = 0;

    /// Whether anything has this name. A link counts, wherever it leads. What cannot be looked at
    /// counts as missing.
    virtual bool exists(const FileUrl& url) const = 0;

    /// Makes a folder and the folders above it. A folder that is already there is a success and
    /// keeps its permissions.
    virtual Result<std::monostate> createFolder(const FileUrl& url, FolderAccess access) = 0;

    /// Moves a file, a folder with all that is in it, or a link itself, to another volume too.
    /// Never overwrites: fails with std::errc::file_exists when `to` is taken, even at the last
    /// moment. After a failure `from` is as it was and nothing of it stands at `to`. What is moved
    /// out of the Trash is no longer listed there. May take as long as copying takes.
    virtual Result<std::monostate> move(const FileUrl& from, const FileUrl& to,
                                        const CopyWatch& watch) = 0;

    /// Likewise with nobody watching.
    Result<std::monostate> move(const FileUrl& from, const FileUrl& to) {
        return move(from, to, CopyWatch{});
    }

    /// Copies likewise, with permissions, times and extended attributes.
    virtual Result<std::monostate> copy(const FileUrl& from, const FileUrl& to,
                                        const CopyWatch& watch) = 0;

    Result<std::monostate> copy(const FileUrl& from, const FileUrl& to) {
        return copy(from, to, CopyWatch{});
    }

    /// Moves a file, a folder or a link itself to the user's Trash and returns its place there, or
    /// none where the platform does not tell. After a failure `url` is as it was.
    virtual Result<std::optional<FileUrl>> trash(const FileUrl& url) = 0;

    /// Replaces the whole contents of a file of the application's own, or makes the file, readable
    /// and writable by its owner alone. Whatever happens meanwhile, it holds the old contents or
    /// the new ones. A link is followed and stays a link. Fails with std::errc::operation_canceled
    /// when the source gives up. `contents` may use this file manager.
    virtual Result<std::monostate> replaceContents(const FileUrl& url,
                                                   const ContentsSource& contents) = 0;

    /// Likewise with contents that are there as a whole.
    Result<std::monostate> replaceContents(const FileUrl& url, std::string_view contents) {
        return replaceContents(url, wholeContents(contents));
    }

    /// Removes what earlier runs of the application left half done when they were killed, and
    /// nothing else; this run may be at work meanwhile. To be called while no other run is. After a
    /// stop request it begins nothing further.
    virtual void removeLeftovers(const std::stop_token& stop) = 0;
};

}  // namespace nookwise
