#include "reader/PassedFile.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {

PassedFile::~PassedFile() {
    if (!bytes_.empty()) ::munmap(const_cast<std::byte*>(bytes_.data()), bytes_.size());
    ::close(descriptor_);
}

bool PassedFile::isRegular() const {
    struct stat state {};
    return ::fstat(descriptor_, &state) == 0 && S_ISREG(state.st_mode);
}

std::span<const std::byte> PassedFile::bytes() {
    struct stat state {};
    if (!bytes_.empty() || ::fstat(descriptor_, &state) != 0 || state.st_size == 0) return bytes_;
    const auto size = static_cast<std::size_t>(state.st_size);
    const void* start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor_, 0);
    if (start != MAP_FAILED) bytes_ = {static_cast<const std::byte*>(start), size};
    return bytes_;
}

}  // namespace nookwise
