#include "platform/linux/LinuxUserFolders.h"

#include "platform/linux/RegularFile.h"
#include "platform/linux/ScreenshotFolders.h"
#include "platform/linux/UserDirs.h"

#include <string>
#include <utility>

#include <gio/gio.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

constexpr std::size_t longestSettings = 1024 * 1024;

bool isFolder(const FileUrl& url) {
    struct stat status {};
    return ::stat(std::string(url.path()).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

LinuxUserFolders::LinuxUserFolders(Environment environment)
    : environment_(std::move(environment)) {}

FileUrl LinuxUserFolders::home() const {
    return baseFolders(environment_).home;
}

FileUrl LinuxUserFolders::desktop() const {
    return userFolder("DESKTOP", "Desktop");
}

FileUrl LinuxUserFolders::documents() const {
    return userFolder("DOCUMENTS", "Documents");
}

FileUrl LinuxUserFolders::downloads() const {
    return userFolder("DOWNLOAD", "Downloads");
}

std::optional<FileUrl> LinuxUserFolders::screenshots() const {
    const auto base = baseFolders(environment_);
    const auto pictures = userFolder("PICTURES", "Pictures");
    const std::optional<FileUrl> candidates[] = {
        gnomeScreenshotFolder(g_settings_schema_source_get_default(), base.home),
        spectacleScreenshotFolder(base.configHome, base.home),
        flameshotScreenshotFolder(base.configHome), pictures.append(screenshotsFolderName()),
        pictures.append("Screenshots")};
    for (const auto& candidate : candidates) {
        if (candidate && isFolder(*candidate)) return candidate;
    }
    return std::nullopt;
}

std::vector<FileUrl> LinuxUserFolders::applications() const {
    return {FileUrl("/Applications"), FileUrl("/Applications/Utilities"),
            home().append("Applications")};
}

FileUrl LinuxUserFolders::applicationSupport() const {
    return baseFolders(environment_).dataHome.append("Nookwise");
}

FileUrl LinuxUserFolders::userFolder(std::string_view key, std::string_view englishName) const {
    const auto base = baseFolders(environment_);
    const auto text = readSmallFile(base.configHome.append("user-dirs.dirs"), longestSettings);
    const auto named = text ? userDir(*text, key, base.home) : std::nullopt;
    return named.value_or(base.home.append(englishName));
}

}  // namespace nookwise
