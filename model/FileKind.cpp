#include "model/FileKind.h"

#include "platform/Text.h"

#include <array>
#include <span>

namespace nookwise {
namespace {

struct Group {
    FileKindGroup group;
    Tint tint;
    /// Empty: the label is made from the extension.
    std::string_view label;
    std::array<std::string_view, 6> exts;
};

// Tested in this order. Unused places of `exts` are empty and match no extension.
constexpr std::array<Group, 12> groups{{
    {FileKindGroup::pdf, {229, 48, 43}, "PDF", {"pdf"}},
    {FileKindGroup::image, {201, 67, 124}, "", {"png", "jpg", "jpeg", "heic", "webp"}},
    {FileKindGroup::clip, {86, 97, 214}, "", {"mov", "mp4", "m4v", "avi", "mkv", "webm"}},
    {FileKindGroup::audio, {217, 115, 26}, "", {"mp3", "wav", "m4a", "aiff", "flac"}},
    {FileKindGroup::archive, {148, 113, 63}, "", {"zip", "rar", "7z", "xip", "tgz"}},
    {FileKindGroup::installer, {196, 87, 58}, "", {"dmg", "pkg", "mpkg", "iso"}},
    {FileKindGroup::sheet, {22, 180, 126}, "XLS", {"xls", "xlsx", "csv", "numbers"}},
    {FileKindGroup::doc, {47, 116, 208}, "", {"doc", "docx", "pages"}},
    {FileKindGroup::slides, {217, 142, 11}, "", {"key", "ppt", "pptx"}},
    {FileKindGroup::rtf, {102, 116, 143}, "", {"rtf"}},
    {FileKindGroup::code, {31, 133, 150}, "", {"json", "swift", "html"}},
    {FileKindGroup::app, {22, 180, 126}, "APP", {"app"}},
}};

constexpr Tint grey{142, 142, 147};
constexpr std::size_t labelLength = 3;

const Group* groupOf(std::string_view ext) {
    for (const auto& group : groups) {
        for (const auto member : group.exts) {
            if (!member.empty() && member == ext) return &group;
        }
    }
    return nullptr;
}

std::string labelOf(std::string_view ext, const Group* group) {
    if (ext.empty()) return "FILE";
    if (group != nullptr && !group->label.empty()) return std::string(group->label);
    return uppercased(firstCharacters(ext, labelLength));
}

}  // namespace

FileKind::FileKind(std::string_view ext) {
    const auto lower = lowercased(ext);
    const auto* found = lower.empty() ? nullptr : groupOf(lower);
    group = found == nullptr ? FileKindGroup::other : found->group;
    label = labelOf(lower, found);
    tint = found == nullptr ? grey : found->tint;
}

}  // namespace nookwise
