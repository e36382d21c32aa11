#include "platform/linux/FileContents.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace nookwise {
namespace {

// How much the kernel is asked to copy at once, so that the copy can still be ended in between.
constexpr std::int64_t kernelPiece = 4LL << 20U;
constexpr std::int64_t bufferSize = 256LL << 10U;
constexpr std::int64_t writeOutPiece = 16LL << 20U;
constexpr std::int64_t blockUnit = 512;

class Contents {
  public:
    Contents(int from, int to, const FileState& state, WatchedCopy& watched)
        : from_(from),
          to_(to),
          size_(state.size),
          isSparse_(state.blocks * blockUnit < size_),
          watched_(watched) {}

    bool copyAll() {
        ::posix_fadvise(from_, 0, 0, POSIX_FADV_SEQUENTIAL);
        if (!isSparse_) return copyRange(0, size_);
        return copyData() && ::ftruncate(to_, size_) == 0 && passed(size_);
    }

  private:
    bool copyData() {
        for (std::int64_t hole = 0; hole < size_;) {
            const auto data = ::lseek(from_, hole, SEEK_DATA);
            if (data < 0 && errno == ENXIO) return true;
            // Without knowledge of holes, everything is data.
            if (data < 0) return copyRange(hole, size_);
            const auto end = ::lseek(from_, data, SEEK_HOLE);
            if (end < 0) return false;
            hole = std::min(end, size_);
            if (!copyRange(data, hole)) return false;
        }
        return true;
    }

    bool copyRange(std::int64_t start, std::int64_t end) {
        off64_t position = start;
        while (position < end && copyInKernel(position, end)) {
            if (!passed(position)) return false;
        }
        return position >= end || copyThroughBuffer(position, end);
    }

    /// Moves `position` on. Why it fails does not matter: the other way comes upon it again.
    bool copyInKernel(off64_t& position, std::int64_t end) const {
        off64_t target = position;
        const auto length = static_cast<std::size_t>(std::min(end - position, kernelPiece));
        return ::copy_file_range(from_, &position, to_, &target, length, 0) > 0;
    }

    bool copyThroughBuffer(std::int64_t position, std::int64_t end) {
        if (!buffer_)
            buffer_ = std::make_unique_for_overwrite<char[]>(
                static_cast<std::size_t>(std::min(bufferSize, size_)));
        while (position < end) {
            const auto length = static_cast<std::size_t>(std::min(end - position, bufferSize));
            const auto count = ::pread(from_, buffer_.get(), length, position);
            if (count < 0 && errno == EINTR) continue;
            if (count == 0) errno = EBUSY;
            if (count <= 0 || !write(position, static_cast<std::size_t>(count))) return false;
            position += count;
            if (!passed(position)) return false;
        }
        return true;
    }

    /// Everything before `position` is copied.
    bool passed(std::int64_t position) {
        writeOutEarly(position);
        return watched_.add(position - std::exchange(counted_, position));
    }

    /// The disk has its turn while the copy goes on, not only at its end. Nothing depends on it.
    void writeOutEarly(std::int64_t position) {
        if (position - writtenOut_ < writeOutPiece) return;
        ::sync_file_range(to_, writtenOut_, position - writtenOut_, SYNC_FILE_RANGE_WRITE);
        writtenOut_ = position;
    }

    bool write(std::int64_t position, std::size_t length) const {
        for (std::size_t written = 0; written < length;) {
            const auto count = ::pwrite(to_, buffer_.get() + written, length - written,
                                        position + static_cast<std::int64_t>(written));
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return false;
            written += static_cast<std::size_t>(count);
        }
        return true;
    }

    int from_;
    int to_;
    std::int64_t size_;
    bool isSparse_;
    std::unique_ptr<char[]> buffer_;
    WatchedCopy& watched_;
    std::int64_t counted_ = 0;
    std::int64_t writtenOut_ = 0;
};

/// Some files, as those of /proc, hold more than they say.
bool endsAt(int file, std::int64_t size) {
    char next = 0;
    const auto count = ::pread(file, &next, 1, size);
    if (count > 0) errno = EBUSY;
    return count == 0;
}

}  // namespace

bool copyContents(int from, int to, const FileState& state, WatchedCopy& watched) {
    if (::ioctl(to, FICLONE, from) == 0) return watched.add(state.size);
    return Contents(from, to, state, watched).copyAll() && endsAt(from, state.size);
}

}  // namespace nookwise
