// The activity log's file.
#pragma once

#include "fileops/ActivityEntry.h"
#include "platform/FileManager.h"

#include <vector>

namespace nookwise {

/// One writer a running application. UI thread only. Failures are silent: the list in memory stays
/// what counts, and the next save writes all of it again.
class ActivityStore {
  public:
    /// Makes `folder`, the application's own, for its owner alone. `files` must outlive the store.
    ActivityStore(FileManager& files, const FileUrl& folder);

    const FileUrl& file() const { return file_; }

    /// Empty when there is no file, or it cannot be read or understood as a whole. The file stays
    /// as it is until the next save.
    std::vector<ActivityEntry> load() const;

    /// Writes the first 500 entries, which are the newest, as a whole.
    void save(const std::vector<ActivityEntry>& entries);

  private:
    FileManager& files_;
    FileUrl file_;
};

}  // namespace nookwise
