// A file system in memory.
#pragma once

#include "platform/FileManager.h"

#include <atomic>
#include <limits>
#include <map>
#include <memory>
#include <mutex>

namespace nookwise {

/// What a file is made of. Whatever is not said is none, except the sizes.
struct FakeFile {
    std::string contents{};
    /// Bytes in the file: zeros follow the contents, as in a sparse file. None: as long as the
    /// contents.
    std::optional<std::int64_t> size{};
    /// None: as many as are in the file.
    std::optional<std::int64_t> allocated{};
    std::optional<Date> modified{};
    std::optional<Date> added{};
    CloudState cloud = CloudState::local;
};

/// One step of work that the file system was asked for. Numbered from 1.
struct FakeOperation {
    enum class Kind {
        enumerate,
        /// A folder below the root of an enumeration is opened.
        folder,
        /// An entry of an enumerated folder is looked at.
        entry,
        list,
        attributes,
        resolved,
        open,
        state,
        read,
        volumeFigures,
        exists,
        createFolder,
        move,
        copy,
        /// Some megabytes of a file have been copied, and are told next.
        copyPiece,
        trash,
        replaceContents,
        removeLeftovers,
    };

    int number = 0;
    Kind kind = Kind::enumerate;
    FileUrl url{};
};

/// Keeps the contract of FileManager to the letter, with the order of an ordinary disk and no
/// surprises but those that a test asks for. Safe to use from several threads. Parents of what is
/// added are made as needed.
class FakeFileManager : public FileManager {
  public:
    FakeFileManager();
    ~FakeFileManager() override;

    // Building the tree. Adding at a path that exists replaces what is there.
    void addFile(std::string_view path, FakeFile file = {});
    void addFolder(std::string_view path);
    /// A folder that counts as one file. Files may be added inside it.
    void addPackage(std::string_view path, FakeFile file = {});
    /// A pipe, a socket or a device.
    void addOther(std::string_view path);
    void addLink(std::string_view path, std::string_view target);
    /// A second name of a file, counted in its link count.
    void addHardLink(std::string_view path, std::string_view existing);
    /// A second path to a file or a folder that no link count knows of, as through a bind mount.
    void addBindMount(std::string_view path, std::string_view existing);
    void remove(std::string_view path);
    /// A file that cannot be opened, a folder that cannot be listed.
    void makeUnreadable(std::string_view path);
    /// What the file system says of a file from now on, word for word.
    void setAttributes(std::string_view path, FileAttributes attributes);
    /// Gives an existing file other contents, with its attributes as they were.
    void setContents(std::string_view path, std::string contents);
    void setModified(std::string_view path, Date modified);
    /// None: asking for the figures fails.
    void setVolumeFigures(std::optional<VolumeFigures> figures);

    /// Refuses every change at this path and below it from now on.
    void forbidChanges(std::string_view path);
    /// What is at this path and below it is on a volume of its own: a move from or to it copies.
    void makeVolume(std::string_view path);
    /// From now on trashing succeeds without telling where.
    void keepTrashPlacesSecret() { tellsTrashPlaces_ = false; }
    /// The disk is full for replaced contents of more bytes from now on.
    void setRoomForContents(std::size_t bytes) { roomForContents_ = bytes; }
    /// What a file holds.
    std::string contents(std::string_view path) const;

    // Watching the work.
    /// Called before each operation takes effect, on the thread that asked for it, with no lock
    /// held: it may change the tree.
    void onOperation(std::function<void(const FakeOperation&)> observer);
    int operations() const { return operations_; }

    Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                     const std::function<void(FoundFile&&)>& found,
                                     std::stop_token stop) const override;
    Result<std::vector<FoundFile>> list(const FileUrl& folder, std::stop_token stop) const override;
    using FileManager::attributes;
    Result<FileAttributes> attributes(const FileUrl& url, std::stop_token stop) const override;
    Result<FileUrl> resolved(const FileUrl& url) const override;
    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override;
    Result<VolumeFigures> volumeFigures(const FileUrl& url) const override;
    bool exists(const FileUrl& url) const override;
    // What changes files (FakeFileChanges.cpp).
    Result<std::monostate> createFolder(const FileUrl& url, FolderAccess access) override;
    using FileManager::move;
    Result<std::monostate> move(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override;
    using FileManager::copy;
    Result<std::monostate> copy(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override;
    /// The Trash is the folder /Trash.
    Result<std::optional<FileUrl>> trash(const FileUrl& url) override;
    using FileManager::replaceContents;
    Result<std::monostate> replaceContents(const FileUrl& url,
                                           const ContentsSource& contents) override;
    /// Removes nothing: nothing is left over here.
    void removeLeftovers(const std::stop_token& stop) override;

  private:
    class Reader;
    struct Node;
    struct Enumeration;
    using NodePointer = std::shared_ptr<Node>;

    void announce(FakeOperation::Kind kind, const FileUrl& url) const;
    NodePointer make(std::string_view path);
    NodePointer makeFolders(std::string_view path);
    void put(std::string_view path, NodePointer node);
    /// Follows every link but the last component. Null when there is nothing.
    NodePointer find(std::string_view path) const;
    NodePointer existing(std::string_view path) const;
    /// Follows every link. Null when there is nothing; else `path` becomes where it leads.
    NodePointer follow(std::string& path) const;
    void enumerateFolder(const Enumeration& enumeration, const FileUrl& folder) const;
    void enumerateEntry(const Enumeration& enumeration, const FileUrl& url) const;
    bool isSkipped(const Enumeration& enumeration, const FileUrl& folder) const;
    /// Empty when the folder cannot be listed (any more).
    std::vector<std::string> entryNames(const FileUrl& folder) const;

    /// Why `url` may not be changed, or none.
    std::optional<FileError> refusal(const FileUrl& url, const char* operation) const;
    std::optional<FileError> obstacleToReplacing(const FileUrl& url) const;
    /// The path of the volume that holds `url`; empty for the volume of "/".
    std::string_view volumeOf(const FileUrl& url) const;
    static std::int64_t bytesIn(const Node& node);
    /// Tells so many bytes as they would be copied; false when it was stopped. Without the lock.
    bool tellCopying(const FileUrl& from, std::int64_t bytes, const CopyWatch& watch) const;
    /// The file at `from` and the folder that is to hold `to`, or why that cannot be.
    struct Placement;
    Result<Placement> placement(const FileUrl& from, const FileUrl& to,
                                const char* operation) const;

    mutable std::mutex mutex_;
    std::vector<FileUrl> unchangeable_;
    std::vector<FileUrl> volumes_;
    bool tellsTrashPlaces_ = true;
    NodePointer root_;
    std::uint64_t lastInode_ = 0;
    std::optional<VolumeFigures> figures_;
    std::size_t roomForContents_ = std::numeric_limits<std::size_t>::max();
    std::function<void(const FakeOperation&)> observer_;
    mutable std::atomic<int> operations_{0};
};

}  // namespace nookwise
