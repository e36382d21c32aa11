#include "tests/changes/Snapshot.h"

#include <fstream>
#include <set>
#include <sstream>

#include <sys/stat.h>
#include <sys/xattr.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

std::string shownContents(const fs::path& path, const struct stat& status) {
    if (S_ISLNK(status.st_mode)) return fs::read_symlink(path).native();
    if (!S_ISREG(status.st_mode)) return {};
    const auto bytes = contents(path);
    return std::to_string(bytes.size()) + "#" + std::to_string(std::hash<std::string>{}(bytes));
}

std::string attributes(const fs::path& path) {
    std::string list(4096, '\0');
    const auto length = ::llistxattr(path.c_str(), list.data(), list.size());
    std::map<std::string, std::string> values;
    for (std::size_t at = 0; length > 0 && at < static_cast<std::size_t>(length);) {
        const std::string name = list.c_str() + at;
        at += name.size() + 1;
        std::string value(4096, '\0');
        const auto size = ::lgetxattr(path.c_str(), name.c_str(), value.data(), value.size());
        value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        values[name] = value;
    }
    std::string text;
    for (const auto& [name, value] : values) text += name + "=" + value + " ";
    return text;
}

std::string line(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return "missing";
    std::ostringstream text;
    text << std::oct << status.st_mode << std::dec << ' ' << status.st_uid << ':' << status.st_gid
         << ' ' << status.st_mtim.tv_sec << '.' << status.st_mtim.tv_nsec << ' '
         << (S_ISDIR(status.st_mode) ? 0 : status.st_nlink) << ' ' << shownContents(path, status)
         << ' ' << attributes(path);
    return text.str();
}

}  // namespace

std::map<std::string, std::string> snapshot(const fs::path& root) {
    std::map<std::string, std::string> lines{{"", line(root)}};
    if (!fs::is_directory(fs::symlink_status(root))) return lines;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        lines[entry.path().lexically_relative(root)] = line(entry.path());
    return lines;
}

std::string contents(const fs::path& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

std::string names(const fs::path& folder) {
    std::set<std::string> sorted;
    for (const auto& entry : fs::directory_iterator(folder)) sorted.insert(entry.path().filename());
    std::string text;
    for (const auto& name : sorted) text += (text.empty() ? "" : " ") + name;
    return text;
}

}  // namespace nookwise
