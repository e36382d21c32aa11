// Writing to an open file.
#pragma once

#include <cerrno>
#include <string_view>

#include <unistd.h>

namespace nookwise {

/// Writes on from where the file stands. False with errno set.
inline bool writeAll(int file, std::string_view contents) {
    while (!contents.empty()) {
        const auto count = ::write(file, contents.data(), contents.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) contents.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace nookwise
