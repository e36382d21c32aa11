// Opening files by paths of any length.
#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {

/// Owns an open file descriptor; -1 is none.
class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~FileDescriptor() {
        if (fd_ >= 0) ::close(fd_);
    }

    int get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }
    /// The caller closes it.
    int release() { return std::exchange(fd_, -1); }

  private:
    int fd_ = -1;
};

/// As open(2), with O_CLOEXEC and, where the file allows it, O_NOATIME: reading must not make a
/// file look used. Paths beyond PATH_MAX are walked in pieces. errno tells why it failed.
FileDescriptor openPath(std::string_view path, int flags);

/// As openPath, from the open folder `folder`, and no component of `relative` may be a link.
FileDescriptor openBelow(int folder, std::string_view relative, int flags);

/// What the file system says of `name` in the open folder `folder`, of a link itself. False with
/// errno set.
bool statBelow(int folder, const char* name, struct statx& attributes);

/// The same for a path of any length.
bool statPath(std::string_view path, struct statx& attributes);

}  // namespace nookwise
