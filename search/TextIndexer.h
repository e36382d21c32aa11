// Reads the text inside files in the background and keeps it in an index file.
#pragma once

#include "model/FileItem.h"
#include "platform/FileManager.h"
#include "platform/Guarded.h"
#include "platform/Metadata.h"
#include "platform/TextReader.h"
#include "platform/UserFolders.h"
#include "search/IndexEntry.h"
#include "search/IndexFile.h"
#include "search/SharedNames.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <stop_token>
#include <unordered_map>
#include <vector>

namespace nookwise {

/// All operations may be called from any thread; all but the constructor may take long. What it is
/// given must outlive it.
class TextIndexer {
  public:
    /// Entries read since the last call, how many files of this run are done, read or not, and of
    /// how many.
    using Progress = std::function<void(IndexEntries&& fresh, std::size_t done, std::size_t total)>;

    struct Stop {
        /// Ends the run before its next chunk; what is being read is finished and kept.
        std::stop_token soon;
        /// Ends the run at once; files not yet read stay unread.
        std::stop_token atOnce;
    };

    /// The index file is read with the first call that needs it, not here.
    TextIndexer(FileManager& files, const Metadata& metadata, const UserFolders& folders,
                TextReader& reader);

    /// The entries that still hold: those whose file has not been changed since.
    IndexEntries cached(std::span<const FileItem> files);

    /// Reads the files that need it, four at a time, and saves the index as it goes. `progress` is
    /// called on this thread, with batches of at least 24 entries until the last. A file about
    /// which the reader learns nothing stays unread until the next run, and so do all that are left
    /// when it can read none. One run at a time: a second one waits for the first to end.
    void run(std::span<const FileItem> files, const Progress& progress, const Stop& stop);

    /// Files are elsewhere now, unchanged: what was read of them goes along, and the index file is
    /// replaced if that was anything. Of two calls at the same time either may be the first; at
    /// worst a file is read again.
    void relocate(const std::unordered_map<FileUrl, FileUrl>& moved);

    /// Replaces the index file, if anything was read since it was last written or loaded.
    void save();

  private:
    struct Index {
        bool isLoaded = false;
        IndexEntries entries;
        SharedNames sources;
        /// How many entries were read, or went to another place, since it was loaded.
        std::uint64_t additions = 0;
    };

    /// As Guarded::with, once the index file has been read.
    template <typename Use>
    decltype(auto) withIndex(Use use);
    void readAll(std::span<const FileItem> work, const FileUrl& downloads, const Progress& progress,
                 const Stop& stop);
    /// Takes what was read into the index and into `pending`.
    void keep(std::span<const FileItem> files, std::vector<Result<IndexEntry>>&& read,
              IndexEntries& pending);
    /// False when not all could be written, or the index grew beyond so many buckets meanwhile.
    bool write(std::size_t buckets, IndexJsonWriter& writer);

    const Metadata& metadata_;
    const UserFolders& folders_;
    TextReader& reader_;
    IndexFile file_;
    Guarded<Index> index_;
    /// How many additions the index file has.
    Guarded<std::uint64_t> written_;
    std::mutex running_;
};

}  // namespace nookwise
