#include "platform/linux/RegularFile.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>

namespace nookwise {
namespace {

constexpr int waitingForNothing = O_RDONLY | O_NONBLOCK | O_NOCTTY;

std::optional<std::string> whole(const std::optional<RegularFile>& file, std::size_t limit) {
    if (!file) return std::nullopt;
    auto bytes = file->beginning(limit + 1);
    if (bytes.size() > limit) return std::nullopt;
    return bytes;
}

}  // namespace

std::optional<RegularFile> RegularFile::open(const FileUrl& url) {
    return checked(openPath(url.path(), waitingForNothing));
}

std::optional<RegularFile> RegularFile::openIn(int folder, std::string_view name) {
    return checked(openBelow(folder, name, waitingForNothing));
}

std::optional<RegularFile> RegularFile::checked(FileDescriptor descriptor) {
    struct stat status {};
    if (!descriptor || ::fstat(descriptor.get(), &status) != 0) return std::nullopt;
    if (!S_ISREG(status.st_mode)) return std::nullopt;
    return RegularFile(std::move(descriptor), status);
}

RegularFile::RegularFile(FileDescriptor descriptor, const struct stat& status)
    : descriptor_(std::move(descriptor)), status_(status) {}

std::string RegularFile::beginning(std::size_t limit) const {
    // A sparse file of terabytes must not become a buffer, nor a short one a buffer of the whole
    // limit.
    constexpr std::size_t step = 64 * 1024;
    std::string bytes;
    while (bytes.size() < limit) {
        const std::size_t held = bytes.size();
        bytes.resize(held + std::min(step, limit - held));
        const auto count = ::pread(descriptor_.get(), bytes.data() + held, bytes.size() - held,
                                   static_cast<off_t>(held));
        bytes.resize(held + (count > 0 ? static_cast<std::size_t>(count) : 0));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
    }
    return bytes;
}

std::optional<std::string> readSmallFile(const FileUrl& url, std::size_t limit) {
    return whole(RegularFile::open(url), limit);
}

std::optional<std::string> readSmallFile(int folder, std::string_view name, std::size_t limit) {
    return whole(RegularFile::openIn(folder, name), limit);
}

}  // namespace nookwise
