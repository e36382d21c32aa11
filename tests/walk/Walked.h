// What an enumeration of a real folder reports.
#pragma once

#include "platform/linux/LinuxFileManager.h"

#include <map>
#include <stop_token>
#include <string>
#include <vector>

namespace nookwise {

/// The paths below `root`, as reported.
inline std::vector<std::string> walkedPaths(const FileUrl& root,
                                            const EnumerationRules& rules = {}) {
    std::vector<std::string> paths;
    const auto found = [&](FoundFile&& file) {
        paths.emplace_back(file.url.path().substr(root.path().size() + 1));
    };
    const auto result = LinuxFileManager().enumerate(root, rules, found, {});
    if (!result) paths.emplace_back("failed: " + result.error().code.message());
    return paths;
}

inline std::map<std::string, FileAttributes> walkedAttributes(const FileUrl& root) {
    std::map<std::string, FileAttributes> attributes;
    const auto found = [&](FoundFile&& file) {
        attributes.emplace(file.url.path().substr(root.path().size() + 1), file.attributes);
    };
    (void)LinuxFileManager().enumerate(root, {}, found, {});
    return attributes;
}

}  // namespace nookwise
