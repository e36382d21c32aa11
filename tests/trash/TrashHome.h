// A home with a Trash of its own.
#pragma once

#include "platform/linux/Trash.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace nookwise {

inline std::string contentsOf(const std::filesystem::path& file) {
    std::ostringstream contents;
    contents << std::ifstream(file, std::ios::binary).rdbuf();
    return contents.str();
}

/// In the order of their bytes; none where there is no such folder.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        names.push_back(entry.path().filename().native());
    std::sort(names.begin(), names.end());
    return names;
}

/// What a description says after "Path=".
inline std::string recordedPathIn(const std::string& info) {
    constexpr std::string_view key = "\nPath=";
    const auto start = info.find(key);
    if (start == std::string::npos) return {};
    const auto value = start + key.size();
    return info.substr(value, info.find('\n', value) - value);
}

/// Something is there, wherever a link leads.
inline bool isThere(const FileUrl& url) {
    return std::filesystem::exists(
        std::filesystem::symlink_status(std::filesystem::path(url.path())));
}

struct TrashHome {
    TemporaryFolder folder;
    FileUrl url = folder.url("data/Trash");
    Trash trash{url};

    std::vector<std::string> names() const { return namesIn(folder.path("data/Trash/files")); }
    std::vector<std::string> infos() const { return namesIn(folder.path("data/Trash/info")); }
    std::string info(std::string_view name) const {
        return contentsOf(folder.path("data/Trash/info") + "/" + std::string(name) + ".trashinfo");
    }
    std::string sizes() const { return contentsOf(folder.path("data/Trash/directorysizes")); }
};

}  // namespace nookwise
