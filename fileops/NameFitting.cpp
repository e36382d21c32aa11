#include "fileops/NameFitting.h"

#include "platform/TextCharacters.h"

#include <algorithm>

namespace nookwise {
namespace {

/// Whether a byte goes on with the code point of the byte before it.
bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string_view fittingCodePoints(std::string_view text, std::size_t room) {
    auto size = room;
    while (size > 0 && continues(text[size])) --size;
    return text.substr(0, size);
}

}  // namespace

std::string_view fitting(std::string_view text, std::size_t room) {
    if (text.size() <= room) return text;
    std::size_t size = 0;
    visitCharacters(text, [&](std::string_view character) {
        if (size + character.size() > room) return false;
        size += character.size();
        return true;
    });
    return size > 0 ? text.substr(0, size) : fittingCodePoints(text, room);
}

std::string nameOf(std::string_view base, std::string_view extension) {
    std::string name(base);
    if (!extension.empty()) name.append(".").append(extension);
    return name;
}

std::string numberedName(std::string_view base, std::string_view extension, std::uint64_t number) {
    const auto tail = nameOf(" (" + std::to_string(number) + ")", extension);
    return std::string(fitting(base, longestName - std::min(longestName, tail.size()))) + tail;
}

}  // namespace nookwise
