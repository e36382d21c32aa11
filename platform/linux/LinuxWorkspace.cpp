#include "platform/linux/LinuxWorkspace.h"

#include "platform/linux/GLibPointer.h"
#include "platform/linux/RegularFile.h"
#include "platform/linux/Reveal.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include <gio/gdesktopappinfo.h>

namespace nookwise {
namespace {

// The longest real ones, with a hundred translations, are well below a tenth of it.
constexpr std::size_t longestEntry = 1024 * 1024;

using KeyFile = std::unique_ptr<GKeyFile, GLibRelease<g_key_file_unref>>;

/// All desktop entries in the folder and below, by URL. Folders that are links are not entered:
/// they may lead back.
std::vector<FileUrl> entriesBelow(const FileUrl& root) {
    std::vector<FileUrl> entries;
    std::vector<std::filesystem::path> folders{std::string(root.path())};
    while (!folders.empty()) {
        std::error_code error;
        std::filesystem::directory_iterator entry(folders.back(), error);
        folders.pop_back();
        for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
            std::error_code ignored;
            if (entry->symlink_status(ignored).type() == std::filesystem::file_type::directory) {
                folders.push_back(entry->path());
            } else if (entry->path().native().ends_with(".desktop")) {
                entries.emplace_back(entry->path().native());
            }
        }
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// "office/writer.desktop" below the folder gives "office-writer.desktop".
std::string desktopEntryId(const FileUrl& entry, const FileUrl& root) {
    std::string id(entry.path().substr(root.path().size()));
    id.erase(0, id.find_first_not_of('/'));
    std::replace(id.begin(), id.end(), '/', '-');
    return id;
}

KeyFile readEntry(const FileUrl& url) {
    const auto text = readSmallFile(url, longestEntry);
    KeyFile entry(g_key_file_new());
    if (!text || !g_key_file_load_from_data(entry.get(), text->data(), text->size(),
                                            G_KEY_FILE_NONE, nullptr)) {
        return nullptr;
    }
    return entry;
}

/// The name of the application, unless the entry is hidden, is no application's, or names a program
/// that is not installed.
std::optional<std::string> shownName(GKeyFile* entry) {
    const GLibObject<GDesktopAppInfo> application(g_desktop_app_info_new_from_keyfile(entry));
    if (!application || g_desktop_app_info_get_is_hidden(application.get()) ||
        g_desktop_app_info_get_nodisplay(application.get())) {
        return std::nullopt;
    }
    // Not the application info's own: that one makes up a name where there is none.
    const GLibString name(g_key_file_get_locale_string(
        entry, G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_NAME, nullptr, nullptr));
    return !name || *name == '\0' ? std::nullopt : std::optional<std::string>(name.get());
}

}  // namespace

std::vector<FileUrl> desktopEntryFolders(const BaseFolders& base) {
    std::vector<FileUrl> dataFolders{base.dataHome};
    dataFolders.insert(dataFolders.end(), base.dataFolders.begin(), base.dataFolders.end());
    dataFolders.push_back(base.dataHome.append("flatpak/exports/share"));
    dataFolders.emplace_back("/var/lib/flatpak/exports/share");
    dataFolders.emplace_back("/var/lib/snapd/desktop");
    std::vector<FileUrl> folders;
    for (const auto& dataFolder : dataFolders) {
        auto folder = dataFolder.append("applications");
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(std::move(folder));
    }
    return folders;
}

LinuxWorkspace::LinuxWorkspace(std::vector<FileUrl> desktopEntryFolders)
    : desktopEntryFolders_(std::move(desktopEntryFolders)) {}

std::vector<InstalledApplication> LinuxWorkspace::applications(std::stop_token stop) const {
    std::vector<InstalledApplication> found;
    std::set<std::string> seen;
    for (const auto& folder : desktopEntryFolders_) {
        for (const auto& url : entriesBelow(folder)) {
            if (stop.stop_requested()) return found;
            const auto entry = readEntry(url);
            if (!entry || !seen.insert(desktopEntryId(url, folder)).second) continue;
            if (auto name = shownName(entry.get())) found.push_back({std::move(*name), url});
        }
    }
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.url < b.url; });
    return found;
}

void LinuxWorkspace::reveal(const std::vector<FileUrl>& urls) {
    revealInFileViewer(urls, openWithDesktop);
}

void LinuxWorkspace::open(const FileUrl& url) {
    if (!openWithDesktop(url)) reveal({url});
}

}  // namespace nookwise
