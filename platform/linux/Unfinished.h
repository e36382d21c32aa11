// Records of what is under way, so that a killed process leaves nothing behind for good.
#pragma once

#include "platform/FileUrl.h"
#include "platform/linux/UnfinishedRecord.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nookwise {

/// A copy grows under a temporary name beside its destination, and what was moved to another volume
/// goes under one before it is removed. While it has that name, a record in a folder of the
/// application's own says where. What is still recorded at the next start is removed, or gets its
/// proper name back when nobody has made sure yet that it may be removed. Only names that carry the
/// record's own random text are ever touched. May be used from any thread.
class Unfinished {
  public:
    /// `folder` holds the records. It is made, for its owner alone, when the first record is.
    explicit Unfinished(FileUrl folder);

    /// One temporary name. Destroying it removes whatever has the name if it is still a copy that
    /// grows there, and the record once nothing has the name. Leaves errno alone.
    class Temporary {
      public:
        Temporary(int folder, std::string name, FileUrl record, LeftoverUse use)
            : folder_(folder),
              name_(std::move(name)),
              record_(std::move(record)),
              isGrowing_(use == LeftoverUse::remove) {}
        Temporary(Temporary&& other) noexcept;
        Temporary& operator=(Temporary&&) = delete;
        ~Temporary();

        /// Hidden, short, and free when it was taken; for a file or a folder.
        const char* name() const { return name_.c_str(); }

        /// Has the next start do this with what has the name then, and this object nothing: from
        /// now on it may be what others wrote into. False with errno set when that is not durable;
        /// the next start may do either then.
        bool setUse(LeftoverUse use);

        /// Whatever has the name stays, and is nobody's to remove.
        void keep();

      private:
        int folder_;
        std::string name_;
        /// Empty when there is nothing to remove.
        FileUrl record_;
        bool isGrowing_;
    };

    /// Takes a temporary name for a copy that is to become `url`, in its folder, which the caller
    /// has open as `folder` for as long as the name lives. None, with errno set, when it cannot be
    /// recorded.
    std::optional<Temporary> temporaryForCopy(const FileUrl& url, int folder) const;

    /// The same to take away what stands at `url`, the file `inode`: the only one that the next
    /// start puts back or removes.
    std::optional<Temporary> temporaryForSource(const FileUrl& url, int folder,
                                                std::uint64_t inode) const;

    /// Removes or puts back what others than this object recorded, and removes the records. What
    /// cannot be reached now, or has lost its proper name to another file, stays recorded.
    void removeRecorded() const;

  private:
    std::optional<Temporary> recorded(const FileUrl& parent, int folder,
                                      UnfinishedRecord record) const;

    FileUrl folder_;
    /// The beginning of the names of this object's records: what is under way is not removed.
    std::string run_;
};

}  // namespace nookwise
