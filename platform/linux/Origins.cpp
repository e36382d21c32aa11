#include "platform/linux/Origins.h"

#include "platform/linux/GLibPointer.h"

#include <optional>

#include <sys/xattr.h>

namespace nookwise {
namespace {

std::optional<std::string> extendedAttribute(const std::string& path, const char* name) {
    const auto size = ::lgetxattr(path.c_str(), name, nullptr, 0);
    if (size <= 0) return std::nullopt;
    std::string value(static_cast<std::size_t>(size), '\0');
    const auto held = ::lgetxattr(path.c_str(), name, value.data(), value.size());
    if (held <= 0) return std::nullopt;
    value.resize(static_cast<std::size_t>(held));
    return value;
}

std::optional<std::string> downloadAddress(const std::string& path) {
    constexpr const char* attribute = "metadata::download-uri";
    const GLibObject<GFile> file(g_file_new_for_path(path.c_str()));
    const GLibObject<GFileInfo> info(g_file_query_info(
        file.get(), attribute, G_FILE_QUERY_INFO_NOFOLLOW_SYMLINKS, nullptr, nullptr));
    if (!info) return std::nullopt;
    if (g_file_info_get_attribute_type(info.get(), attribute) != G_FILE_ATTRIBUTE_TYPE_STRING) {
        return std::nullopt;
    }
    const char* address = g_file_info_get_attribute_string(info.get(), attribute);
    return address == nullptr ? std::nullopt : std::optional<std::string>(address);
}

bool isText(const std::string& value) {
    return !value.empty() &&
           g_utf8_validate(value.data(), static_cast<gssize>(value.size()), nullptr);
}

}  // namespace

std::vector<std::string> originsOf(const FileUrl& url) {
    const std::string path(url.path());
    if (path.empty() || path.find('\0') != std::string::npos) return {};
    std::vector<std::string> origins;
    const auto add = [&](std::optional<std::string> address) {
        if (address && isText(*address)) origins.push_back(std::move(*address));
    };
    add(extendedAttribute(path, "user.xdg.origin.url"));
    add(extendedAttribute(path, "user.xdg.referrer.url"));
    add(downloadAddress(path));
    return origins;
}

}  // namespace nookwise
