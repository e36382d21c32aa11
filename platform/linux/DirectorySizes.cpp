#include "platform/linux/DirectorySizes.h"

#include "platform/Uuid.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/NewFile.h"
#include "platform/linux/OpenAt.h"
#include "platform/linux/PercentEscapes.h"
#include "platform/linux/RegularFile.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr const char* listName = "directorysizes";
constexpr std::string_view temporaryPrefix = ".directorysizes-nookwise-";

// Enough for tens of thousands of folders. A longer list is started anew.
constexpr std::size_t longestList = 8 * 1024 * 1024;

constexpr std::size_t looksPerCall = 64;

/// Takes a number and the space after it off the front of `line`. False where there is none.
bool takeNumber(std::string_view& line) {
    std::int64_t number = 0;
    const auto* end = line.data() + line.size();
    const auto read = std::from_chars(line.data(), end, number);
    if (read.ec != std::errc{} || number < 0 || read.ptr == end || *read.ptr != ' ') return false;
    line.remove_prefix(static_cast<std::size_t>(read.ptr - line.data()) + 1);
    return true;
}

/// The name in a line. None where the line makes no sense.
std::optional<std::string> nameIn(std::string_view line) {
    const bool hasSize = takeNumber(line);
    const bool hasTime = hasSize && takeNumber(line);
    if (!hasTime) return std::nullopt;
    auto name = percentUnescaped(line);
    if (!name || name->empty() || name->find('/') != std::string::npos ||
        name->find('\0') != std::string::npos || line.find(' ') != std::string_view::npos)
        return std::nullopt;
    return name;
}

struct Lines {
    /// In the order in which they should be looked at next.
    std::vector<std::string_view> kept;
    bool hadName = false;
};

Lines linesWithout(std::string_view text, std::string_view name, const IsInTrash& isInTrash) {
    Lines lines;
    std::vector<std::string_view> lookedAt;
    std::size_t looks = 0;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto lineName = nameIn(line);
        if (!lineName) continue;
        if (*lineName == name) {
            lines.hadName = true;
        } else if (looks == looksPerCall) {
            lines.kept.push_back(line);
        } else {
            ++looks;
            if (isInTrash(*lineName)) lookedAt.push_back(line);
        }
    }
    lines.kept.insert(lines.kept.end(), lookedAt.begin(), lookedAt.end());
    return lines;
}

std::string joined(const std::vector<std::string_view>& lines) {
    std::string text;
    for (const auto line : lines) {
        text += line;
        text += '\n';
    }
    return text;
}

std::string readList(int trash) {
    return readSmallFile(trash, listName, longestList).value_or(std::string());
}

void replaceList(int trash, std::string_view text) {
    const auto temporary = std::string(temporaryPrefix) + Uuid::random().text();
    if (!writeNewFile(trash, temporary.c_str(), text)) return;
    if (::renameat(trash, temporary.c_str(), trash, listName) != 0)
        ::unlinkat(trash, temporary.c_str(), 0);
}

IsInTrash isFolderIn(int files) {
    return [files](const std::string& name) {
        struct statx status {};
        return statBelow(files, name.c_str(), status) && S_ISDIR(status.stx_mode);
    };
}

}  // namespace

std::string withDirectorySize(std::string_view text, std::string_view name,
                              const DirectorySize& size, const IsInTrash& isInTrash) {
    return joined(linesWithout(text, name, isInTrash).kept) + std::to_string(size.bytes) + " " +
           std::to_string(size.described) + " " + percentEscaped(name) + "\n";
}

std::string withoutDirectorySize(std::string_view text, std::string_view name,
                                 const IsInTrash& isInTrash) {
    const auto lines = linesWithout(text, name, isInTrash);
    return lines.hadName ? joined(lines.kept) : std::string(text);
}

void recordDirectorySize(int trash, int files, std::string_view name, const DirectorySize& size) {
    replaceList(trash, withDirectorySize(readList(trash), name, size, isFolderIn(files)));
}

void forgetDirectorySize(int trash, int files, std::string_view name) {
    const auto before = readList(trash);
    const auto after = withoutDirectorySize(before, name, isFolderIn(files));
    if (after != before) replaceList(trash, after);
}

void removeUnfinishedDirectorySizes(int trash) {
    const auto folder = openBelow(trash, ".", O_RDONLY | O_DIRECTORY);
    FolderEntries listing;
    if (!folder || !listing.read(folder.get(), {})) return;
    for (const auto& entry : listing.entries())
        if (entry.view().starts_with(temporaryPrefix)) ::unlinkat(trash, entry.name, 0);
}

}  // namespace nookwise
