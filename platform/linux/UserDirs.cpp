#include "platform/linux/UserDirs.h"

#include <string>

namespace nookwise {
namespace {

bool take(std::string_view& rest, std::string_view expected) {
    if (!rest.starts_with(expected)) return false;
    rest.remove_prefix(expected.size());
    return true;
}

void skipBlanks(std::string_view& rest) {
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) rest.remove_prefix(1);
}

/// What stands before the closing quote, without its escapes. None when there is no closing quote.
std::optional<std::string> quotedText(std::string_view rest) {
    std::string text;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if (rest[i] == '"') return text;
        if (rest[i] == '\\' && i + 1 < rest.size()) ++i;
        text += rest[i];
    }
    return std::nullopt;
}

/// The value of a line that assigns to `key`: absolute, or below the home folder.
std::optional<FileUrl> valueIn(std::string_view line, std::string_view key, const FileUrl& home) {
    skipBlanks(line);
    if (!take(line, "XDG_") || !take(line, key) || !take(line, "_DIR")) return std::nullopt;
    skipBlanks(line);
    if (!take(line, "=")) return std::nullopt;
    skipBlanks(line);
    if (!take(line, "\"")) return std::nullopt;
    const bool isBelowHome = take(line, "$HOME");
    const auto path = quotedText(line);
    if (!path || path->find('\0') != std::string::npos) return std::nullopt;
    const bool isWholeName = path->starts_with('/') || (isBelowHome && path->empty());
    if (!isWholeName) return std::nullopt;
    return FileUrl(isBelowHome ? std::string(home.path()) + *path : *path).standardized();
}

}  // namespace

std::optional<FileUrl> userDir(std::string_view text, std::string_view key, const FileUrl& home) {
    std::optional<FileUrl> folder;
    while (!text.empty()) {
        const auto end = text.find('\n');
        if (auto value = valueIn(text.substr(0, end), key, home)) folder = std::move(value);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    }
    if (folder && home.standardized().isWithin(*folder)) return std::nullopt;
    return folder;
}

}  // namespace nookwise
