#include "platform/linux/RecentlyUsed.h"

#include "platform/linux/GLibPointer.h"
#include "platform/linux/RegularFile.h"
#include "platform/linux/ToolNames.h"

#include <algorithm>
#include <string>
#include <utility>

namespace nookwise {
namespace {

// Desktops keep at most a thousand entries or so of about one kilobyte. Reading takes several times
// the file's size in memory, and a list that never ends must not take all there is.
constexpr std::size_t longestList = 16 * 1024 * 1024;

using BookmarkFile = std::unique_ptr<GBookmarkFile, GLibRelease<g_bookmark_file_free>>;

/// "/usr/bin/viewer --new file:///a" gives "viewer".
std::string_view programOf(std::string_view commandLine) {
    const auto program = commandLine.substr(0, commandLine.find(' '));
    return program.substr(program.rfind('/') + 1);
}

bool onlyWrites(GBookmarkFile* bookmarks, const char* url, const char* application) {
    if (namesWriter(application)) return true;
    // The name may be translated; the program's is not.
    char* commandLine = nullptr;
    if (!g_bookmark_file_get_application_info(bookmarks, url, application, &commandLine, nullptr,
                                              nullptr, nullptr)) {
        return false;
    }
    const GLibString owned(commandLine);
    return namesWriter(programOf(commandLine));
}

std::optional<Date> registrationBy(GBookmarkFile* bookmarks, const char* url,
                                   const char* application) {
    GDateTime* stamp = nullptr;
    if (!g_bookmark_file_get_application_info(bookmarks, url, application, nullptr, nullptr, &stamp,
                                              nullptr) ||
        stamp == nullptr) {
        return std::nullopt;
    }
    return Date{Seconds{static_cast<double>(g_date_time_to_unix(stamp)) +
                        g_date_time_get_microsecond(stamp) / 1e6}};
}

std::optional<Date> lastOpeningOf(GBookmarkFile* bookmarks, const char* url) {
    const GLibStrings applications(
        g_bookmark_file_get_applications(bookmarks, url, nullptr, nullptr));
    std::optional<Date> last;
    for (char** name = applications.get(); name != nullptr && *name != nullptr; ++name) {
        if (onlyWrites(bookmarks, url, *name)) continue;
        // No date is less than every date.
        last = std::max(last, registrationBy(bookmarks, url, *name));
    }
    return last;
}

}  // namespace

std::unordered_map<FileUrl, Date> openingsIn(std::string_view text) {
    std::unordered_map<FileUrl, Date> openings;
    const BookmarkFile bookmarks(g_bookmark_file_new());
    if (!g_bookmark_file_load_from_data(bookmarks.get(), text.data(), text.size(), nullptr))
        return openings;
    const GLibStrings urls(g_bookmark_file_get_uris(bookmarks.get(), nullptr));
    for (char** url = urls.get(); *url != nullptr; ++url) {
        // Writers of the list escape differently, so the bytes of the path are what counts.
        const auto file = FileUrl::fromUrlString(*url);
        const auto opened = file ? lastOpeningOf(bookmarks.get(), *url) : std::nullopt;
        if (!opened) continue;
        const auto [entry, isNew] = openings.try_emplace(*file, *opened);
        if (!isNew) entry->second = std::max(entry->second, *opened);
    }
    return openings;
}

RecentlyUsed::RecentlyUsed(FileUrl list) : list_(std::move(list)) {}

std::optional<Date> RecentlyUsed::lastOpening(const FileUrl& url) const {
    return openings_.with([&](Openings& openings) -> std::optional<Date> {
        const auto current = currentVersion(list_);
        if (current != openings.version) {
            openings.version = current;
            read(openings);
        }
        const auto entry = openings.dates.find(url);
        return entry == openings.dates.end() ? std::nullopt : std::optional(entry->second);
    });
}

std::optional<RecentlyUsed::Version> RecentlyUsed::currentVersion(const FileUrl& list) {
    struct stat status {};
    if (::stat(std::string(list.path()).c_str(), &status) != 0) return std::nullopt;
    return versionOf(status);
}

RecentlyUsed::Version RecentlyUsed::versionOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec};
}

void RecentlyUsed::read(Openings& openings) const {
    openings.dates.clear();
    const auto file = RegularFile::open(list_);
    if (!file) return;
    // What is read may be newer than what was looked at before; it is never older than this.
    openings.version = versionOf(file->status());
    if (static_cast<std::size_t>(file->status().st_size) > longestList) return;
    openings.dates = openingsIn(file->beginning(longestList));
}

}  // namespace nookwise
