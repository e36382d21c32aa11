// Reading small files that anybody may have put anything into.
#pragma once

#include "platform/FileUrl.h"
#include "platform/linux/OpenAt.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace nookwise {

/// An open regular file. Opening never waits for a pipe's other end; reading does not make the file
/// look used.
class RegularFile {
  public:
    /// None when there is no such file, when it is not a regular file, or when it may not be read.
    /// A link is followed.
    static std::optional<RegularFile> open(const FileUrl& url);

    /// The same for `name` in the open folder `folder`, but no link is followed.
    static std::optional<RegularFile> openIn(int folder, std::string_view name);

    /// As of opening.
    const struct stat& status() const noexcept { return status_; }

    /// The first `limit` bytes, or fewer when the file ends or cannot be read any further.
    std::string beginning(std::size_t limit) const;

  private:
    static std::optional<RegularFile> checked(FileDescriptor descriptor);
    RegularFile(FileDescriptor descriptor, const struct stat& status);

    FileDescriptor descriptor_;
    struct stat status_;
};

/// A whole file. None when it cannot be opened or is longer than `limit` bytes.
std::optional<std::string> readSmallFile(const FileUrl& url, std::size_t limit);

/// The same for `name` in the open folder `folder`, but no link is followed.
std::optional<std::string> readSmallFile(int folder, std::string_view name, std::size_t limit);

}  // namespace nookwise
