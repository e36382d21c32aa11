#include "platform/linux/DurableFile.h"

#include "platform/linux/OpenAt.h"
#include "platform/linux/WriteAll.h"

#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr std::size_t writeOutPiece = std::size_t{16} << 20U;

/// A new file, which is removed again unless it is finished.
class GrowingFile {
  public:
    GrowingFile(int folder, const char* name)
        : folder_(folder),
          name_(name),
          file_(
              ::openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600)) {
        // Whatever the mask for new files leaves of it, its owner may write it again. Fails where
        // there are no permissions.
        if (file_) ::fchmod(file_.get(), 0600);
    }

    ~GrowingFile() {
        if (!file_ || isFinished_) return;
        const int reason = errno;
        ::unlinkat(folder_, name_, 0);
        errno = reason;
    }
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;

    explicit operator bool() const { return static_cast<bool>(file_); }

    /// False with errno set.
    bool fill(const ContentsSource& contents) {
        int reason = 0;
        const auto write = [&](std::string_view bytes) {
            if (reason != 0) return false;
            if (!writeAll(file_.get(), bytes)) reason = errno;
            if (reason == 0) writeOutEarly(bytes.size());
            return reason == 0;
        };
        const bool isComplete = contents(write);
        if (!isComplete && reason == 0) reason = ECANCELED;
        errno = reason;
        return reason == 0;
    }

    /// False with errno set.
    bool finish() {
        isFinished_ = ::fsync(file_.get()) == 0;
        return isFinished_;
    }

  private:
    /// The disk has its turn while more is being made, not only at the end. Nothing depends on it.
    void writeOutEarly(std::size_t added) {
        waiting_ += added;
        if (waiting_ < writeOutPiece) return;
        ::sync_file_range(file_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
        waiting_ = 0;
    }

    int folder_;
    const char* name_;
    FileDescriptor file_;
    bool isFinished_ = false;
    /// Bytes since the disk last had its turn.
    std::size_t waiting_ = 0;
};

}  // namespace

bool writeDurableFile(int folder, const char* name, const ContentsSource& contents) {
    GrowingFile file(folder, name);
    return file && file.fill(contents) && file.finish();
}

bool writeDurableFile(int folder, const char* name, std::string_view contents) {
    return writeDurableFile(folder, name, wholeContents(contents));
}

}  // namespace nookwise
