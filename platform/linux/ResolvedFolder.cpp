#include "platform/linux/ResolvedFolder.h"

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr std::size_t longestPath = PATH_MAX - 1;

std::optional<FileUrl> placeOf(int folder) {
    const auto link = "/proc/self/fd/" + std::to_string(folder);
    std::array<char, PATH_MAX> place{};
    const auto length = ::readlink(link.c_str(), place.data(), place.size());
    if (length < 0) return std::nullopt;
    if (static_cast<std::size_t>(length) == place.size()) {
        errno = ENAMETOOLONG;
        return std::nullopt;
    }
    return FileUrl(std::string_view(place.data(), static_cast<std::size_t>(length)));
}

std::optional<ResolvedFolder> resolveNearFolder(std::string_view path) {
    auto folder = openPath(path, O_PATH | O_DIRECTORY);
    if (!folder) return std::nullopt;
    auto place = placeOf(folder.get());
    if (!place) return std::nullopt;
    return ResolvedFolder{std::move(folder), std::move(*place)};
}

}  // namespace

std::optional<ResolvedFolder> resolveFolder(std::string_view path) {
    if (path.size() <= longestPath) return resolveNearFolder(path);
    const auto slash = path.rfind('/', longestPath);
    if (slash == 0 || slash == std::string_view::npos || !isPlainPath(path)) {
        errno = ENAMETOOLONG;
        return std::nullopt;
    }
    const auto near = resolveNearFolder(path.substr(0, slash));
    if (!near) return std::nullopt;
    const auto rest = path.substr(slash + 1);
    auto folder = openBelow(near->folder.get(), rest, O_PATH | O_DIRECTORY);
    if (!folder) return std::nullopt;
    return ResolvedFolder{std::move(folder), near->url.append(rest)};
}

bool isPlainPath(std::string_view path) {
    return path.find("//") == std::string_view::npos &&
           path.find("/./") == std::string_view::npos &&
           path.find("/../") == std::string_view::npos;
}

}  // namespace nookwise
