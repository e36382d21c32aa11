// Putting an index together while its file is still being read.
#pragma once

#include "search/IndexEntry.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace nookwise {

/// Makes the lower case of the texts on a thread of its own: it takes as long as reading them.
/// Used by one thread.
class IndexBuilder {
  public:
    IndexBuilder();
    /// Drops what has not been taken.
    ~IndexBuilder();
    IndexBuilder(const IndexBuilder&) = delete;
    IndexBuilder& operator=(const IndexBuilder&) = delete;

    /// An entry whose lower case is still missing. Replaces an earlier one of the same file.
    void add(FileUrl url, IndexEntry entry);

    /// All that was added. To be called once, at the end.
    IndexEntries take();

  private:
    using Batch = std::vector<std::pair<FileUrl, IndexEntry>>;

    void handOver();
    void work();
    void finish(Batch&& batch);

    Batch batch_;
    std::mutex mutex_;
    std::condition_variable changed_;
    // Guarded by the mutex.
    std::vector<Batch> waiting_;
    bool isEnded_ = false;
    // The helper's alone until it has been joined.
    IndexEntries entries_;
    std::string lower_;
    std::jthread helper_;
};

}  // namespace nookwise
