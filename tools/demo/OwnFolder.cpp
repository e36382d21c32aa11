#include "tools/demo/OwnFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise::demo {
namespace {

constexpr auto markName = ".made-by-nookwise-demo";
constexpr std::string_view markText =
    "nookwise-demo made this folder. Without it, the next start makes a fresh sample home.\n";
/// That of demos which made their home anew at each start.
constexpr std::string_view earlierMarkText =
    "nookwise-demo made this folder. It replaces the sample home in it at each start.\n";

FileError lastError(const FileUrl& url, std::string operation) {
    return {{errno, std::generic_category()}, url, std::move(operation)};
}

bool isOurMark(int mark) {
    struct stat status {};
    if (fstat(mark, &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != geteuid())
        return false;
    std::array<char, std::max(markText.size(), earlierMarkText.size()) + 1> buffer{};
    const auto count = pread(mark, buffer.data(), buffer.size(), 0);
    if (count < 0) return false;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(count));
    return text == markText || text == earlierMarkText;
}

/// The mark of an existing folder, open; none (-1) where it is not ours.
int openMark(int folder) {
    const int mark = openat(folder, markName, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (mark < 0 || isOurMark(mark)) return mark;
    close(mark);
    return -1;
}

int makeMark(int folder) {
    const int mark = openat(folder, markName, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (mark < 0) return -1;
    if (write(mark, markText.data(), markText.size()) == static_cast<ssize_t>(markText.size()))
        return mark;
    close(mark);
    return -1;
}

enum class Existing { no, yes };

Result<int> markOf(const FileUrl& url, const std::string& path, Existing existing) {
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    int mark = -1;
    if (folder >= 0) mark = existing == Existing::yes ? openMark(folder) : makeMark(folder);
    auto failure = lastError(url, "mark");
    if (existing == Existing::yes) failure.code = std::make_error_code(std::errc::file_exists);
    if (folder >= 0) close(folder);
    if (mark < 0) return failure;
    return mark;
}

}  // namespace

Result<OwnFolder> OwnFolder::claim(const FileUrl& folder) {
    const std::string path(folder.path());
    std::error_code ignored;
    std::filesystem::create_directories(folder.parentPath(), ignored);
    auto existing = Existing::no;
    if (mkdir(path.c_str(), 0700) != 0) {
        if (errno != EEXIST) return lastError(folder, "make");
        existing = Existing::yes;
    }
    const auto mark = markOf(folder, path, existing);
    if (!mark) return mark.error();
    OwnFolder claimed(folder, mark.value());
    if (flock(claimed.mark_, LOCK_EX | LOCK_NB) != 0) {
        return FileError{std::make_error_code(std::errc::device_or_resource_busy), folder, "claim"};
    }
    return claimed;
}

OwnFolder::OwnFolder(OwnFolder&& other) noexcept
    : folder_(std::move(other.folder_)), mark_(std::exchange(other.mark_, -1)) {}

OwnFolder::~OwnFolder() {
    if (mark_ >= 0) close(mark_);
}

Result<std::monostate> OwnFolder::remove(std::string_view name) const {
    const auto url = folder_.append(name);
    std::error_code failure;
    std::filesystem::remove_all(std::string(url.path()), failure);
    if (failure) return FileError{failure, url, "remove"};
    return std::monostate{};
}

Result<FileUrl> OwnFolder::makeAnew(std::string_view name) const {
    if (const auto removed = remove(name); !removed) return removed.error();
    const auto url = folder_.append(name);
    if (mkdir(std::string(url.path()).c_str(), 0700) != 0) return lastError(url, "make");
    return url;
}

}  // namespace nookwise::demo
