// The file in which the index outlives the application.
#pragma once

#include "platform/FileManager.h"
#include "search/IndexJson.h"

#include <functional>

namespace nookwise {

/// Has no state but the file itself. Its operations may be called from any thread.
class IndexFile {
  public:
    /// Makes `folder`, the application's own, for its owner alone. `files` must outlive it.
    IndexFile(FileManager& files, const FileUrl& folder);

    /// Empty when there is no file, or it cannot be read or understood as a whole.
    IndexEntries load() const;

    /// Replaces the file with the entries that `addAll` gives to the writer, unless that returns
    /// false. False when it stays as it was.
    bool save(const std::function<bool(IndexJsonWriter&)>& addAll);

  private:
    FileManager& files_;
    FileUrl file_;
};

}  // namespace nookwise
