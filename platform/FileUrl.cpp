#include "platform/FileUrl.h"

#include <cstring>
#include <vector>

namespace nookwise {
namespace {

std::string_view withoutTrailingSlashes(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    return path;
}

bool standsUnescaped(unsigned char byte) {
    if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
        (byte >= '0' && byte <= '9'))
        return true;
    return std::string_view("!$&'()*+,-./:=@_~").find(static_cast<char>(byte)) !=
           std::string_view::npos;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

constexpr std::string_view scheme = "file://";
constexpr std::string_view localHost = "localhost";

/// As rfind, which looks at one byte at a time.
std::size_t lastSlash(std::string_view path) noexcept {
    if (path.empty()) return std::string_view::npos;
    const auto* slash = static_cast<const char*>(::memrchr(path.data(), '/', path.size()));
    return slash == nullptr ? std::string_view::npos
                            : static_cast<std::size_t>(slash - path.data());
}

}  // namespace

std::string_view extensionOf(std::string_view fileName) {
    const auto dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return {};
    return fileName.substr(dot + 1);
}

std::string_view stemOf(std::string_view fileName) {
    const auto extension = extensionOf(fileName);
    return extension.empty() ? fileName
                             : fileName.substr(0, fileName.size() - extension.size() - 1);
}

FileUrl::FileUrl(std::string_view path) : path_(withoutTrailingSlashes(path)) {}

std::string_view FileUrl::lastPathComponent() const noexcept {
    const auto whole = path();
    const auto slash = lastSlash(whole);
    if (slash == std::string_view::npos || whole.size() == 1) return whole;
    return whole.substr(slash + 1);
}

std::string_view FileUrl::parentPath() const noexcept {
    const auto whole = path();
    const auto slash = lastSlash(whole);
    if (slash == std::string_view::npos) return {};
    return slash == 0 ? whole.substr(0, 1) : whole.substr(0, slash);
}

FileUrl FileUrl::append(std::string_view name) const {
    const auto whole = path();
    if (!whole.empty() && whole.back() == '/') return FileUrl(SharedBytes({whole, name}));
    return FileUrl(SharedBytes({whole, "/", name}));
}

FileUrl FileUrl::standardized() const {
    std::vector<std::string_view> components;
    std::string_view rest = path();
    while (!rest.empty()) {
        const auto slash = rest.find('/');
        const auto component = rest.substr(0, slash);
        rest = slash == std::string_view::npos ? std::string_view{} : rest.substr(slash + 1);
        if (component.empty() || component == ".") continue;
        if (component == "..") {
            if (!components.empty()) components.pop_back();
        } else {
            components.push_back(component);
        }
    }
    std::string joined;
    for (const auto component : components) {
        joined += '/';
        joined += component;
    }
    return FileUrl(joined.empty() ? std::string_view("/") : std::string_view(joined));
}

bool FileUrl::isWithin(const FileUrl& folder) const noexcept {
    const auto mine = path();
    const auto theirs = folder.path();
    if (theirs.empty()) return false;
    if (theirs == "/") return !mine.empty();
    return mine.starts_with(theirs) && (mine.size() == theirs.size() || mine[theirs.size()] == '/');
}

std::string FileUrl::urlString() const {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text(scheme);
    for (const char c : path()) {
        const auto byte = static_cast<unsigned char>(c);
        if (standsUnescaped(byte)) {
            text += c;
        } else {
            text += '%';
            text += digits[byte >> 4];
            text += digits[byte & 15];
        }
    }
    return text;
}

std::optional<FileUrl> FileUrl::fromUrlString(std::string_view text) {
    if (!text.starts_with(scheme)) return std::nullopt;
    text.remove_prefix(scheme.size());
    if (text.starts_with(localHost)) text.remove_prefix(localHost.size());
    if (!text.starts_with('/')) return std::nullopt;
    if (text.find('\0') != std::string_view::npos) return std::nullopt;
    std::string path;
    path.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            path += text[i];
            continue;
        }
        if (i + 2 >= text.size()) return std::nullopt;
        const int high = hexDigit(text[i + 1]);
        const int low = hexDigit(text[i + 2]);
        if (high < 0 || low < 0 || (high == 0 && low == 0)) return std::nullopt;
        path += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return FileUrl(path);
}

}  // namespace nookwise
