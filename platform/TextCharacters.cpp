#include "platform/TextCharacters.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace nookwise {
namespace {

struct CloseText {
    void operator()(UText* text) const { utext_close(text); }
};

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

/// The code point that begins at `position`, which is moved behind it; negative for what is not
/// UTF-8.
UChar32 nextCodePoint(std::string_view text, std::size_t& position) {
    UChar32 codePoint = 0;
    U8_NEXT(bytesOf(text), position, text.size(), codePoint);
    return codePoint;
}

/// Where the code point before `position` begins.
std::size_t stepBack(std::string_view text, std::size_t position) {
    constexpr std::size_t longest = U8_MAX_LENGTH;
    const auto window = position - std::min(position, longest);
    auto index = static_cast<std::int32_t>(position - window);
    U8_BACK_1(bytesOf(text) + window, 0, index);
    return window + static_cast<std::size_t>(index);
}

bool isAscii(char byte) {
    return static_cast<signed char>(byte) >= 0;
}

/// The one character that two of ASCII make.
bool isLineBreak(std::string_view text, std::size_t position) {
    return text[position] == '\r' && position + 1 < text.size() && text[position + 1] == '\n';
}

bool isBeforeCombining(UChar32 codePoint) {
    return codePoint < 0x300;
}

/// True for code points that never join another one of the kind.
bool standsAlone(UChar32 codePoint) {
    if (isBeforeCombining(codePoint)) return true;
    switch (u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
        case U_GCB_OTHER:
        case U_GCB_CONTROL:
        case U_GCB_LV:
        case U_GCB_LVT:
            return true;
        default:
            return false;
    }
}

/// True when a character ends at `position` because the code points on both sides are `such`,
/// whatever comes before them.
bool endsBetween(bool (*such)(UChar32), std::string_view text, std::size_t position) {
    if (position == text.size()) return true;
    if (isLineBreak(text, position - 1)) return false;
    if (isAscii(text[position - 1]) && isAscii(text[position])) return true;
    auto before = stepBack(text, position);
    return such(nextCodePoint(text, before)) && such(nextCodePoint(text, position));
}

/// Calls `visit` with the characters from `start` on, as the library finds them, until it returns
/// false or simple text begins: to come back for each simple code point between others costs more
/// than to go on. Returns where it ended; the text's end after false.
template <typename Visit>
std::size_t visitCombined(std::string_view text, std::size_t start, Visit& visit) {
    UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const auto rest = text.substr(start);
    const std::unique_ptr<UText, CloseText> view(
        utext_openUTF8(nullptr, rest.data(), static_cast<std::int64_t>(rest.size()), &status));
    if (characters != nullptr) characters->setText(view.get(), status);
    auto begin = start;
    while (true) {
        // Without the library's data each code point counts as a character.
        auto end = begin;
        nextCodePoint(text, end);
        if (characters != nullptr && U_SUCCESS(status)) {
            const auto next = characters->next();
            end = next == icu::BreakIterator::DONE ? text.size()
                                                   : start + static_cast<std::size_t>(next);
        }
        if (!visit(TextRange{begin, end})) return text.size();
        if (endsBetween(isBeforeCombining, text, end)) return end;
        begin = end;
    }
}

/// Calls `visit` with the range of each character from `position` on, which must be where one
/// begins, until it returns false.
template <typename Visit>
void forEachCharacter(std::string_view text, std::size_t position, Visit visit) {
    while (position < text.size()) {
        auto end = position;
        if (isLineBreak(text, position))
            end += 2;
        else if (isAscii(text[position]))
            ++end;
        else
            nextCodePoint(text, end);
        if (!endsBetween(standsAlone, text, end))
            position = visitCombined(text, position, visit);
        else if (!visit(TextRange{position, end}))
            return;
        else
            position = end;
    }
}

}  // namespace

std::size_t charactersBefore(std::string_view text, std::size_t position) {
    std::size_t count = 0;
    forEachCharacter(text, 0, [&](TextRange character) {
        if (character.end > position) return false;
        ++count;
        return true;
    });
    return count;
}

std::string_view characters(std::string_view text, std::size_t first, std::size_t last) {
    if (first >= last) return {};
    TextRange range{text.size(), text.size()};
    std::size_t number = 0;
    forEachCharacter(text, 0, [&](TextRange character) {
        if (number == first) range.begin = character.begin;
        ++number;
        if (number == last) range.end = character.end;
        return number < last;
    });
    return text.substr(range.begin, range.end - range.begin);
}

std::vector<TextRange> wholeCharacters(std::string_view text, std::vector<TextRange> ranges) {
    auto begin = ranges.begin();
    auto end = ranges.begin();
    forEachCharacter(text, 0, [&](TextRange character) {
        for (; begin != ranges.end() && begin->begin < character.end; ++begin)
            begin->begin = character.begin;
        for (; end != ranges.end() && end->end <= character.end; ++end)
            end->end = end->end > character.begin ? character.end : end->end;
        return end != ranges.end();
    });
    return ranges;
}

}  // namespace nookwise
