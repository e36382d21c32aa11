#include "platform/linux/TrashInfo.h"

#include "platform/FileUrl.h"
#include "platform/linux/PercentEscapes.h"

#include <array>

namespace nookwise {
namespace {

constexpr std::string_view runKey = "X-Nookwise-Run=";
constexpr std::string_view header = "[Trash Info]\n";

// Longer ones are no kinds of files, and keeping them could leave nothing of the stem.
constexpr std::size_t longestExtension = 32;

/// The first `length` bytes or a little less, so that no UTF-8 character is cut in two.
std::string_view shortened(std::string_view text, std::size_t length) {
    if (text.size() <= length) return text;
    constexpr std::size_t mostContinuationBytes = 3;
    auto end = length;
    const auto continues = [&] { return (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U; };
    while (end > 0 && length - end < mostContinuationBytes && continues()) --end;
    return text.substr(0, continues() ? length : end);
}

}  // namespace

std::string nameInTrash(std::string_view name, std::string_view suffix) {
    auto stem = stemOf(name);
    auto extension = name.substr(stem.size());
    if (extension.size() > longestExtension) {
        stem = name;
        extension = {};
    }
    std::string result(shortened(stem, longestNameInTrash - suffix.size() - extension.size()));
    result += suffix;
    result += extension;
    return result;
}

std::string trashInfo(std::string_view path, const std::tm& deleted, std::string_view run) {
    std::array<char, 64> date{};
    const auto dateLength = std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &deleted);
    std::string text(header);
    text += "Path=";
    text += percentEscaped(path);
    text += "\nDeletionDate=";
    text += std::string_view(date.data(), dateLength);
    text += '\n';
    text += runKey;
    text += run;
    text += '\n';
    return text;
}

std::string_view runInTrashInfo(std::string_view text) {
    if (!text.starts_with(header)) return {};
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = text.substr(0, end);
        if (line.starts_with(runKey)) return line.substr(runKey.size());
        if (end == std::string_view::npos) return {};
        text.remove_prefix(end + 1);
    }
    return {};
}

}  // namespace nookwise
