// Records of what is under way, so that a killed process leaves nothing behind for good.
#pragma once

#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nookwise {

/// A copy grows under a temporary name beside its destination, and what was moved to another volume
/// goes under one before it is removed. While it has that name, a record in a folder of the
/// application's own says where; what is still recorded at the next start is removed. Only names
/// that carry the record's own random text are ever removed. May be used from any thread.
class Unfinished {
  public:
    /// `folder` holds the records. It is made, for its owner alone, when the first record is.
    explicit Unfinished(FileUrl folder);

    /// One temporary name. Destroying it removes whatever has the name, then the record, and leaves
    /// errno alone.
    class Temporary {
      public:
        Temporary(int folder, std::string name, FileUrl record)
            : folder_(folder), name_(std::move(name)), record_(std::move(record)) {}
        Temporary(Temporary&& other) noexcept;
        Temporary& operator=(Temporary&&) = delete;
        ~Temporary();

        /// Hidden, short, and free when it was taken; for a file or a folder.
        const char* name() const { return name_.c_str(); }

        /// Whatever has the name stays, and is nobody's to remove.
        void keep();

      private:
        int folder_;
        std::string name_;
        /// Empty when there is nothing to remove.
        FileUrl record_;
    };

    /// Takes a temporary name in the folder `url`, which the caller has open as `folder` for as
    /// long as the name lives. When `inode` is given, only that file is removed under the name at
    /// the next start. None, with errno set, when it cannot be recorded.
    std::optional<Temporary> temporaryIn(const FileUrl& url, int folder,
                                         std::optional<std::uint64_t> inode = {}) const;

    /// Removes what others than this object recorded, and the records. What cannot be reached now
    /// stays recorded.
    void removeRecorded() const;

  private:
    FileUrl folder_;
    /// The beginning of the names of this object's records: what is under way is not removed.
    std::string run_;
};

}  // namespace nookwise
