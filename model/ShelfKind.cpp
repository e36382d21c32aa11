#include "model/ShelfKind.h"

#include <cstdint>
#include <cstring>
#include <unordered_map>

namespace nookwise {
namespace {

constexpr std::array<std::string_view, 12> pictures{"png",  "jpg", "jpeg", "heic", "gif", "webp",
                                                    "tiff", "bmp", "svg",  "psd",  "raw", "dng"};
constexpr std::array<std::string_view, 6> clips{"mov", "mp4", "m4v", "avi", "mkv", "webm"};
constexpr std::array<std::string_view, 8> audio{"mp3",  "wav",  "m4a", "aif",
                                                "aiff", "flac", "ogg", "aac"};
constexpr std::array<std::string_view, 15> docs{"pdf", "doc",  "docx", "pages", "key",
                                                "ppt", "pptx", "xls",  "xlsx",  "numbers",
                                                "csv", "txt",  "md",   "rtf",   "epub"};
constexpr std::array<std::string_view, 10> bundles{"zip", "rar", "7z",  "xip", "tar",
                                                   "gz",  "tgz", "dmg", "pkg", "iso"};

/// A short text as a number, which is quicker to look up: each file of a large home is asked about
/// after each action. 0 for a text that is too long.
std::uint64_t packed(std::string_view text) {
    std::uint64_t number = 0;
    if (!text.empty() && text.size() < sizeof number)
        std::memcpy(&number, text.data(), text.size());
    return number;
}

std::unordered_map<std::uint64_t, ShelfKind> shelvesByExtension() {
    std::unordered_map<std::uint64_t, ShelfKind> shelves;
    for (const auto kind : allShelfKinds) {
        for (const auto extension : exts(kind)) shelves.emplace(packed(extension), kind);
    }
    return shelves;
}

}  // namespace

std::string_view rawValue(ShelfKind kind) {
    static constexpr std::array<std::string_view, allShelfKinds.size()> values{
        "pictures", "clips", "audio", "docs", "bundles"};
    return values[static_cast<std::size_t>(kind)];
}

std::span<const std::string_view> exts(ShelfKind kind) {
    switch (kind) {
        case ShelfKind::pictures:
            return pictures;
        case ShelfKind::clips:
            return clips;
        case ShelfKind::audio:
            return audio;
        case ShelfKind::docs:
            return docs;
        case ShelfKind::bundles:
            return bundles;
    }
    return {};
}

std::optional<ShelfKind> shelfOf(std::string_view extension) {
    static const auto shelves = shelvesByExtension();
    const auto found = shelves.find(packed(extension));
    return found == shelves.end() ? std::nullopt : std::optional(found->second);
}

bool usesGrid(ShelfKind kind) {
    return kind == ShelfKind::pictures || kind == ShelfKind::clips || kind == ShelfKind::docs;
}

}  // namespace nookwise
