#include "platform/TextClasses.h"

#include <cstddef>
#include <cstdint>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace nookwise {
namespace {

CharacterClass classOfControl(UChar32 codePoint) {
    constexpr UChar32 nextLine = 0x85;
    if (codePoint == '\t') return CharacterClass::whiteSpace;
    const bool endsLine = (codePoint >= '\n' && codePoint <= '\r') || codePoint == nextLine;
    return endsLine ? CharacterClass::lineBreak : CharacterClass::control;
}

/// By the rules for characters, which leave out those that join their neighbours.
bool isInvisible(UChar32 codePoint) {
    return u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_CONTROL;
}

CharacterClass classOfCodePoint(UChar32 codePoint) {
    switch (u_charType(codePoint)) {
        case U_UPPERCASE_LETTER:
        case U_LOWERCASE_LETTER:
        case U_TITLECASE_LETTER:
        case U_MODIFIER_LETTER:
        case U_OTHER_LETTER:
            return CharacterClass::letter;
        case U_DECIMAL_DIGIT_NUMBER:
        case U_LETTER_NUMBER:
        case U_OTHER_NUMBER:
            return CharacterClass::digit;
        case U_SPACE_SEPARATOR:
            return CharacterClass::whiteSpace;
        case U_LINE_SEPARATOR:
        case U_PARAGRAPH_SEPARATOR:
            return CharacterClass::lineBreak;
        case U_CONTROL_CHAR:
            return classOfControl(codePoint);
        case U_FORMAT_CHAR:
        case U_UNASSIGNED:
            return isInvisible(codePoint) ? CharacterClass::invisible : CharacterClass::other;
        default:
            return CharacterClass::other;
    }
}

}  // namespace

CharacterClass classOf(std::string_view character) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(character.data());
    std::size_t position = 0;
    UChar32 codePoint = -1;
    if (!character.empty()) U8_NEXT(bytes, position, character.size(), codePoint);
    return codePoint < 0 ? CharacterClass::malformed : classOfCodePoint(codePoint);
}

}  // namespace nookwise
