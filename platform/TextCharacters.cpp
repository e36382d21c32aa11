#include "platform/TextCharacters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
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

/// Bytes that are looked at together, with instructions that work on many.
constexpr std::size_t blockSize = 64;

using Flags = std::array<std::uint8_t, blockSize>;

/// 1 or 0, to be joined without a branch.
std::uint8_t isBetween(std::uint8_t byte, std::uint8_t first, std::uint8_t last) {
    return static_cast<std::uint8_t>(byte - first) <= last - first ? 1 : 0;
}

/// How many code points begin in a block that begins with one. 0 unless each of them is one whose
/// first byte tells that it stands alone, wherever it is: ASCII without CR; Latin and the phonetic
/// alphabet, all before the first combining one; Cyrillic up to U+047F; Chinese characters from
/// U+4000 on, and Korean syllables from U+B000 up to U+CFFF.
std::size_t codePointsAlone(const char* block) {
    Flags ofTwo{};
    Flags ofThree{};
    Flags following{};
    unsigned others = 0;
    std::size_t begun = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        const auto byte = static_cast<std::uint8_t>(block[i]);
        const bool follows = isBetween(byte, 0x80, 0xBF) != 0;
        const bool two = (isBetween(byte, 0xC2, 0xCB) | isBetween(byte, 0xD0, 0xD1)) != 0;
        const bool three = (isBetween(byte, 0xE4, 0xE9) | isBetween(byte, 0xEB, 0xEC)) != 0;
        const bool ascii = (byte < 0x80) & (byte != '\r');
        ofTwo[i] = two;
        ofThree[i] = three;
        following[i] = follows;
        others |= static_cast<unsigned>(!(follows | two | three | ascii));
        begun += !follows;
    }
    // Each code point is as long as its first byte says.
    const auto differs = [&](std::size_t i, unsigned follows) {
        others |= static_cast<unsigned>(following[i]) ^ follows;
    };
    differs(0, 0);
    differs(1, static_cast<unsigned>(ofTwo[0] | ofThree[0]));
    for (std::size_t i = 2; i < blockSize; ++i)
        differs(i, static_cast<unsigned>(ofTwo[i - 1] | ofThree[i - 1] | ofThree[i - 2]));
    return others == 0 ? begun : 0;
}

/// Where a character begins, and how many there are before it.
struct Place {
    std::size_t begin = 0;
    std::size_t number = 0;
};

/// Passes over characters that are counted by the block, up to `end` and `number` at most.
Place passBlocks(std::string_view text, Place place, Place last) {
    while (place.begin + blockSize <= last.begin && last.number - place.number >= blockSize) {
        const auto count = codePointsAlone(text.data() + place.begin);
        if (count == 0) break;
        // What comes behind the block may belong to its last code point.
        auto end = place.begin + blockSize - 1;
        while ((static_cast<std::uint8_t>(text[end]) & 0xC0U) == 0x80U) --end;
        place = {end, place.number + count - 1};
    }
    return place;
}

/// The place behind the last character that ends at or before the byte `last.begin` and is one of
/// the first `last.number`.
Place placeBehind(std::string_view text, Place place, Place last) {
    // Among others, the next block is tried only after a while.
    constexpr std::size_t aWhile = 32;
    for (bool isDone = false; !isDone && place.begin < text.size();) {
        place = passBlocks(text, place, last);
        std::size_t passed = 0;
        forEachCharacter(text, place.begin, [&](TextRange character) {
            isDone = character.end > last.begin || place.number == last.number;
            if (isDone) return false;
            place = {character.end, place.number + 1};
            return ++passed < aWhile;
        });
    }
    return place;
}

}  // namespace

std::size_t charactersBefore(std::string_view text, std::size_t position) {
    const auto end = std::min(position, text.size());
    return placeBehind(text, {}, {end, std::numeric_limits<std::size_t>::max()}).number;
}

std::string_view characters(std::string_view text, std::size_t first, std::size_t last) {
    if (first >= last) return {};
    const auto begin = placeBehind(text, {}, {text.size(), first});
    const auto end = placeBehind(text, begin, {text.size(), last});
    return text.substr(begin.begin, end.begin - begin.begin);
}

void visitCharacters(std::string_view text, const std::function<bool(std::string_view)>& visit) {
    forEachCharacter(text, 0, [&](TextRange character) {
        return visit(text.substr(character.begin, character.end - character.begin));
    });
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
