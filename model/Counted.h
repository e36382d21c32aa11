// Counts in words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nookwise {

/// "1 file", "2 files", "0 files".
inline std::string counted(std::size_t count, std::string_view singular, std::string_view plural) {
    return std::to_string(count).append(" ").append(count == 1 ? singular : plural);
}

inline std::string countedFiles(std::size_t count) {
    return counted(count, "file", "files");
}

}  // namespace nookwise
