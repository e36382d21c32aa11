#include "platform/linux/Environment.h"

#include <cstdlib>
#include <optional>
#include <string_view>

#include <pwd.h>
#include <unistd.h>

namespace nookwise {
namespace {

std::optional<FileUrl> absolute(std::string_view path) {
    if (!path.starts_with('/')) return std::nullopt;
    return FileUrl(path);
}

/// For programs started without HOME, as some services are.
std::optional<FileUrl> homeOfAccount() {
    std::vector<char> buffer(16 * 1024);
    passwd account{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &account, buffer.data(), buffer.size(), &found) != 0)
        return std::nullopt;
    if (found == nullptr || found->pw_dir == nullptr) return std::nullopt;
    return absolute(found->pw_dir);
}

FileUrl homeFolder(const Environment& environment) {
    if (auto home = absolute(environment("HOME"))) return *home;
    return homeOfAccount().value_or(FileUrl("/"));
}

std::vector<FileUrl> absoluteFolders(std::string_view list) {
    std::vector<FileUrl> folders;
    while (!list.empty()) {
        const auto colon = list.find(':');
        if (auto folder = absolute(list.substr(0, colon))) folders.push_back(*folder);
        list = colon == std::string_view::npos ? std::string_view{} : list.substr(colon + 1);
    }
    return folders;
}

}  // namespace

std::string processEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

BaseFolders baseFolders(const Environment& environment) {
    BaseFolders folders;
    folders.home = homeFolder(environment);
    folders.configHome =
        absolute(environment("XDG_CONFIG_HOME")).value_or(folders.home.append(".config"));
    folders.dataHome = absolute(environment("XDG_DATA_HOME"))
                           .value_or(folders.home.append(".local").append("share"));
    folders.dataFolders = absoluteFolders(environment("XDG_DATA_DIRS"));
    if (folders.dataFolders.empty()) {
        folders.dataFolders = {FileUrl("/usr/local/share"), FileUrl("/usr/share")};
    }
    return folders;
}

}  // namespace nookwise
