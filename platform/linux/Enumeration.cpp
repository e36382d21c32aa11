#include "platform/linux/Enumeration.h"

#include "platform/linux/FolderEntries.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>

namespace nookwise {
namespace {

// More threads than this wait for the kernel's locks on one disk.
constexpr unsigned mostThreads = 4;
// Bounds the memory that reading ahead takes to a few megabytes.
constexpr std::size_t mostFilesAhead = 8'192;
constexpr std::size_t mostFoldersAhead = 1'024;
// How many attributes are read between two looks at the stop request.
constexpr std::size_t stopStride = 256;

// A stop request that comes between a thread's test and its wait is not heard: how long it may wait
// then.
constexpr std::chrono::milliseconds longestWait{20};

struct Folder;

/// A folder waiting to be read or being read, in walk order among its like.
struct Unread {
    Folder* folder;
    bool isTaken = false;
};

using UnreadFolders = std::list<Unread>;

struct Folder {
    struct Child {
        /// How many of the folder's files come before the child.
        std::size_t filesBefore;
        std::unique_ptr<Folder> folder;
    };

    FileUrl url;
    /// Below the root; empty for the root itself.
    std::string relativePath;
    // Written by the thread that reads the folder; the others look at them once `isRead`.
    std::vector<FoundFile> files;
    std::vector<Child> children;
    // Guarded by the walk's lock.
    bool isRead = false;
    UnreadFolders::iterator place;
};

/// Reads single folders. Each thread has its own, for the buffers.
class FolderReader {
  public:
    FolderReader(int root, const EnumerationRules& rules, std::stop_token stop)
        : root_(root), rules_(rules), stop_(std::move(stop)) {}

    /// Fills in `files` and `children`; leaves both empty when the folder is skipped or cannot be
    /// read.
    void read(Folder& folder) {
        const bool isRoot = folder.relativePath.empty();
        const auto opened =
            openBelow(root_, isRoot ? "." : folder.relativePath, O_RDONLY | O_DIRECTORY);
        if (!opened || !listing_.read(opened.get(), stop_)) return;
        if (!isRoot && rules_.skipsFolderHolding && rules_.skipsFolderHolding(listing_.names()))
            return;
        if (!listing_.keepVisibleSorted(stop_)) return;
        std::size_t count = 0;
        for (const auto& entry : listing_.entries()) {
            if (++count % stopStride == 0 && stop_.stop_requested()) return;
            add(folder, opened.get(), entry);
        }
    }

  private:
    void add(Folder& folder, int opened, const FolderEntries::Entry& entry) {
        if (entry.type == EntryType::other) return;
        const bool isKnownFolder = entry.type == EntryType::folder;
        if (isKnownFolder && !namesPackage(entry.view())) return addChild(folder, entry);
        struct statx status {};
        if (!statBelow(opened, entry.name, status)) return;
        const auto type = typeOf(status);
        if (type == FileType::regular) {
            folder.files.push_back({folder.url.append(entry.view()), attributesOf(status, type)});
        } else if (type == FileType::folder && namesPackage(entry.view())) {
            addPackage(folder, opened, entry, status);
        } else if (type == FileType::folder) {
            addChild(folder, entry);
        }
    }

    void addChild(Folder& folder, const FolderEntries::Entry& entry) const {
        auto url = folder.url.append(entry.view());
        if (rules_.skipsFolder && rules_.skipsFolder(url)) return;
        auto child = std::make_unique<Folder>();
        child->url = std::move(url);
        child->relativePath.reserve(folder.relativePath.size() + 1 + entry.length);
        if (!folder.relativePath.empty())
            child->relativePath.append(folder.relativePath).append(1, '/');
        child->relativePath.append(entry.view());
        folder.children.push_back({folder.files.size(), std::move(child)});
    }

    void addPackage(Folder& folder, int opened, const FolderEntries::Entry& entry,
                    const struct statx& status) const {
        auto attributes = attributesOf(status, FileType::package);
        const auto package = openBelow(opened, entry.view(), O_RDONLY | O_DIRECTORY);
        const auto contents = package ? packageContents(package.get(), stop_) : PackageContents{};
        attributes.allocatedSize = contents.allocatedSize;
        attributes.fileSize = contents.fileSize;
        folder.files.push_back({folder.url.append(entry.view()), attributes});
    }

    int root_;
    const EnumerationRules& rules_;
    std::stop_token stop_;
    FolderEntries listing_;
};

/// The state that the threads of one walk share. The folder that the walk needs next is always the
/// first unread one, so whoever is free reads the first that nobody has taken.
class Walk {
  public:
    Walk(const FileDescriptor& root, const FileUrl& url, const EnumerationRules& rules,
         const std::stop_token& stop)
        : root_(root.get()), rules_(rules), outer_(stop, [this] { requestStop(); }) {
        top_.url = url;
        top_.place = unread_.insert(unread_.end(), {&top_});
    }

    ~Walk() {
        requestStop();
        helpers_.clear();
        deleteIteratively();
    }

    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    void report(const std::function<void(FoundFile&&)>& found) {
        struct Step {
            Folder* folder;
            std::size_t nextFile = 0;
            std::size_t nextChild = 0;
        };
        startHelpers();
        FolderReader reader(root_, rules_, stop_.get_token());
        std::vector<Step> path;
        if (waitFor(top_, reader)) path.push_back({&top_});
        while (!path.empty()) {
            auto& step = path.back();
            auto& folder = *step.folder;
            const bool hasChild = step.nextChild < folder.children.size();
            const auto end =
                hasChild ? folder.children[step.nextChild].filesBefore : folder.files.size();
            for (; step.nextFile < end; ++step.nextFile) {
                if (stop_.stop_requested()) return;
                found(std::move(folder.files[step.nextFile]));
            }
            if (!hasChild) {
                release(folder);
                path.pop_back();
                continue;
            }
            auto& child = *folder.children[step.nextChild++].folder;
            if (!waitFor(child, reader)) return;
            path.push_back({&child});
        }
    }

  private:
    /// Where the system gives no more threads, the calling one does their work too.
    void startHelpers() {
        const auto threads = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
        try {
            for (unsigned i = 1; i < threads; ++i) helpers_.emplace_back([this] { readAhead(); });
        } catch (const std::system_error&) {
            return;
        }
    }

    void requestStop() {
        stop_.request_stop();
        // Without the lock, which a thread of the lowest priority may hold while the UI thread
        // calls this.
        changed_.notify_all();
    }

    /// The first folder that nobody has taken, or null. The lock is held.
    Folder* take() {
        const auto first = std::find_if(unread_.begin(), unread_.end(),
                                        [](const Unread& entry) { return !entry.isTaken; });
        if (first == unread_.end()) return nullptr;
        first->isTaken = true;
        return first->folder;
    }

    /// Lets the others see a folder that was read, and puts its children in its place. The lock is
    /// held.
    void publish(Folder& folder, UnreadFolders& children) {
        unread_.splice(folder.place, children);
        unread_.erase(folder.place);
        folder.isRead = true;
        filesAhead_ += folder.files.size();
        ++foldersAhead_;
        changed_.notify_all();
    }

    void readUnlocked(std::unique_lock<std::mutex>& lock, Folder& folder, FolderReader& reader) {
        lock.unlock();
        reader.read(folder);
        UnreadFolders children;
        for (auto& child : folder.children) {
            child.folder->place = children.insert(children.end(), {child.folder.get()});
        }
        lock.lock();
        publish(folder, children);
    }

    /// Reads other folders while another thread reads this one. False after a stop request.
    bool waitFor(Folder& folder, FolderReader& reader) {
        std::unique_lock lock(mutex_);
        while (!folder.isRead && !stop_.stop_requested()) {
            if (auto* const other = take()) {
                readUnlocked(lock, *other, reader);
            } else {
                changed_.wait_for(lock, longestWait);
            }
        }
        return !stop_.stop_requested();
    }

    void readAhead() {
        FolderReader reader(root_, rules_, stop_.get_token());
        std::unique_lock lock(mutex_);
        while (!stop_.stop_requested()) {
            const bool isFarAhead =
                filesAhead_ > mostFilesAhead || foldersAhead_ > mostFoldersAhead;
            if (auto* const folder = isFarAhead ? nullptr : take()) {
                readUnlocked(lock, *folder, reader);
            } else {
                changed_.wait_for(lock, longestWait);
            }
        }
    }

    /// Gives back the memory of a folder that was reported.
    void release(Folder& folder) {
        const auto count = folder.files.size();
        std::vector<FoundFile>().swap(folder.files);
        std::vector<Folder::Child>().swap(folder.children);
        const std::lock_guard lock(mutex_);
        const bool wasFarAhead = filesAhead_ > mostFilesAhead || foldersAhead_ > mostFoldersAhead;
        filesAhead_ -= count;
        --foldersAhead_;
        if (wasFarAhead) changed_.notify_all();
    }

    /// Folders may be nested deeper than the stack is.
    void deleteIteratively() {
        std::vector<Folder::Child> doomed = std::move(top_.children);
        while (!doomed.empty()) {
            auto child = std::move(doomed.back());
            doomed.pop_back();
            std::move(child.folder->children.begin(), child.folder->children.end(),
                      std::back_inserter(doomed));
            child.folder->children.clear();
        }
    }

    const int root_;
    const EnumerationRules& rules_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::stop_source stop_;
    Folder top_;
    UnreadFolders unread_;
    std::size_t filesAhead_ = 0;
    std::size_t foldersAhead_ = 0;
    std::stop_callback<std::function<void()>> outer_;
    std::vector<std::jthread> helpers_;
};

}  // namespace

void enumerateTree(const FileDescriptor& folder, const FileUrl& root, const EnumerationRules& rules,
                   const std::function<void(FoundFile&&)>& found, const std::stop_token& stop) {
    Walk(folder, root, rules, stop).report(found);
}

}  // namespace nookwise
