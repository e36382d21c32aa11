#include "platform/Text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace nookwise {
namespace {

constexpr std::uint64_t highBits = 0x8080808080808080;

bool isAscii(char c) {
    return static_cast<signed char>(c) >= 0;
}

/// How many of eight bytes come before the first that is not ASCII.
std::size_t asciiLength(std::uint64_t bytes) {
    const auto others = bytes & highBits;
    const auto bits = std::endian::native == std::endian::little ? std::countr_zero(others)
                                                                 : std::countl_zero(others);
    return static_cast<std::size_t>(bits) / 8;
}

/// How many bytes of ASCII the text begins with. Eight at a time: texts are long.
std::size_t asciiLength(std::string_view text) {
    std::size_t length = 0;
    for (std::uint64_t bytes = 0; text.size() - length >= sizeof bytes; length += sizeof bytes) {
        std::memcpy(&bytes, text.data() + length, sizeof bytes);
        if ((bytes & highBits) != 0) return length + asciiLength(bytes);
    }
    while (length < text.size() && isAscii(text[length])) ++length;
    return length;
}

bool isAscii(std::string_view text) {
    return asciiLength(text) == text.size();
}

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char upperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isLetterAscii(char c) {
    return lowerAscii(c) >= 'a' && lowerAscii(c) <= 'z';
}

/// Splits into stretches of valid UTF-8 and single bytes that are not.
template <typename Valid, typename Invalid>
void forEachStretch(std::string_view text, Valid valid, Invalid invalid) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t start = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        const auto before = position;
        UChar32 codePoint = 0;
        U8_NEXT(bytes, position, text.size(), codePoint);
        if (codePoint >= 0) continue;
        if (before > start) valid(text.substr(start, before - start));
        // U8_NEXT may pass over several bytes of one broken sequence; all of them are kept.
        invalid(text.substr(before, position - before));
        start = position;
    }
    if (position > start) valid(text.substr(start, position - start));
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

using CaseMapping = void (*)(const char*, std::uint32_t, icu::StringPiece, icu::ByteSink&,
                             icu::Edits*, UErrorCode&);

std::string caseMapped(std::string_view text, CaseMapping mapping) {
    std::string mapped;
    mapped.reserve(text.size());
    icu::StringByteSink<std::string> sink(&mapped);
    forEachStretch(
        text,
        [&](std::string_view valid) {
            UErrorCode status = U_ZERO_ERROR;
            mapping("", 0, piece(valid), sink, nullptr, status);
            if (U_FAILURE(status)) mapped += valid;
        },
        [&](std::string_view invalid) { mapped += invalid; });
    return mapped;
}

/// The ASCII letters among eight bytes made small. Others stay as they are.
std::uint64_t lowerAscii(std::uint64_t bytes) {
    constexpr auto inEachByte = [](std::uint64_t byte) { return byte * 0x0101010101010101; };
    const auto sevenBits = bytes & ~highBits;
    // The sums have the high bit from 'A' on, and from behind 'Z' on. An upper-case letter lacks
    // 0x20.
    const auto fromA = sevenBits + inEachByte(0x80 - 'A');
    const auto behindZ = sevenBits + inEachByte(0x80 - 'Z' - 1);
    return bytes | (((fromA ^ behindZ) & ~bytes & highBits) >> 2U);
}

/// Without Turkish dotless letters, this is the only one that becomes two.
constexpr UChar32 capitalIWithDot = 0x130;
constexpr std::string_view smallIAndDot = "i\u0307";

/// Puts the lower case of the character at `position`, which moves on, to `lower`. Returns its end.
/// No letter's lower case is longer by more than half.
char* lowerOne(std::string_view text, std::size_t& position, char* lower) {
    if (isAscii(text[position])) {
        *lower = lowerAscii(text[position++]);
        return lower + 1;
    }
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto before = position;
    UChar32 codePoint = 0;
    U8_NEXT(bytes, position, text.size(), codePoint);
    if (codePoint < 0) return std::copy(text.data() + before, text.data() + position, lower);
    if (codePoint == capitalIWithDot)
        return std::copy(smallIAndDot.begin(), smallIAndDot.end(), lower);
    auto* mapped = reinterpret_cast<std::uint8_t*>(lower);
    std::size_t length = 0;
    const auto lowerCodePoint = static_cast<std::uint32_t>(u_tolower(codePoint));
    U8_APPEND_UNSAFE(mapped, length, lowerCodePoint);
    return lower + length;
}

/// Of a text in which no letter's lower case depends on its neighbours. Eight characters at a time
/// where it can be: texts are long, and most of them are ASCII.
void lowercaseOneByOne(std::string_view text, std::string& lower) {
    lower.resize(text.size() + text.size() / 2);
    auto* next = lower.data();
    for (std::size_t position = 0; position < text.size();) {
        if (std::uint64_t bytes = 0; text.size() - position >= sizeof bytes) {
            std::memcpy(&bytes, text.data() + position, sizeof bytes);
            const auto lowerBytes = lowerAscii(bytes);
            // What is not ASCII is written over.
            std::memcpy(next, &lowerBytes, sizeof lowerBytes);
            const auto count = asciiLength(bytes);
            next += count;
            position += count;
            if (count > 0) continue;
        }
        next = lowerOne(text, position, next);
    }
    lower.resize(static_cast<std::size_t>(next - lower.data()));
}

std::string composed(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* normalizer = icu::Normalizer2::getNFCInstance(status);
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    if (U_SUCCESS(status)) normalizer->normalizeUTF8(0, piece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

struct CloseText {
    void operator()(UText* text) const { utext_close(text); }
};

/// Calls `visit` with the byte range of each grapheme cluster until it returns false.
template <typename Visit>
void forEachCharacter(std::string_view text, Visit visit) {
    UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const std::unique_ptr<UText, CloseText> view(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
    if (characters == nullptr || U_FAILURE(status)) return;
    characters->setText(view.get(), status);
    if (U_FAILURE(status)) return;
    auto start = characters->first();
    for (auto end = characters->next(); end != icu::BreakIterator::DONE;
         start = end, end = characters->next()) {
        if (!visit(text.substr(static_cast<std::size_t>(start),
                               static_cast<std::size_t>(end - start))))
            return;
    }
}

bool beginsWithLetter(std::string_view character) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(character.data());
    std::size_t position = 0;
    UChar32 codePoint = 0;
    U8_NEXT(bytes, position, character.size(), codePoint);
    return codePoint >= 0 && u_isalpha(codePoint) != 0;
}

/// True when each byte is a character: in ASCII only CR LF joins two bytes to one.
bool bytesAreCharacters(std::string_view text) {
    return isAscii(text) && text.find('\r') == std::string_view::npos;
}

/// The user's locale. The POSIX one, which stands for none, orders by code points: no file viewer
/// does.
icu::Locale collationLocale() {
    const auto& locale = icu::Locale::getDefault();
    return std::string_view(locale.getVariant()) == "POSIX" ? icu::Locale::getRoot() : locale;
}

std::unique_ptr<icu::Collator> makeCollator() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(collationLocale(), status));
    if (U_FAILURE(status)) return nullptr;
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    // The second level tells accents apart but not upper from lower case.
    collator->setAttribute(UCOL_STRENGTH, UCOL_SECONDARY, status);
    return U_SUCCESS(status) ? std::move(collator) : nullptr;
}

}  // namespace

std::string lowercased(std::string_view text) {
    std::string lower;
    lowercase(text, lower);
    return lower;
}

void lowercase(std::string_view text, std::string& lower) {
    // The one letter whose lower case depends on what is around it.
    constexpr std::string_view capitalSigma = "\u03A3";
    if (text.find(capitalSigma) != std::string_view::npos)
        lower = caseMapped(text, &icu::CaseMap::utf8ToLower);
    else
        lowercaseOneByOne(text, lower);
}

std::string uppercased(std::string_view text) {
    if (!isAscii(text)) return caseMapped(text, &icu::CaseMap::utf8ToUpper);
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), upperAscii);
    return upper;
}

std::string lowercasedLetters(std::string_view text) {
    std::string kept;
    const auto lower = lowercased(text);
    if (isAscii(lower)) {
        std::copy_if(lower.begin(), lower.end(), std::back_inserter(kept), isLetterAscii);
        return kept;
    }
    forEachCharacter(composed(lower), [&](std::string_view character) {
        if (beginsWithLetter(character)) kept += character;
        return true;
    });
    return kept;
}

std::string caseFolded(std::string_view text) {
    if (isAscii(text)) return lowercased(text);
    std::string folded;
    forEachStretch(
        text,
        [&](std::string_view valid) {
            UErrorCode status = U_ZERO_ERROR;
            std::string stretch;
            icu::StringByteSink<std::string> sink(&stretch);
            icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, piece(valid), sink, nullptr, status);
            folded += U_SUCCESS(status) ? composed(stretch) : valid;
        },
        [&](std::string_view invalid) { folded += invalid; });
    return folded;
}

bool isWellFormed(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t position = 0;
    for (;;) {
        position += asciiLength(text.substr(position));
        if (position == text.size()) return true;
        while (position < text.size() && !isAscii(text[position])) {
            UChar32 codePoint = 0;
            U8_NEXT(bytes, position, text.size(), codePoint);
            if (codePoint < 0) return false;
        }
    }
}

std::string wellFormed(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    forEachStretch(
        text, [&](std::string_view valid) { result += valid; },
        [&](std::string_view) { result += "\uFFFD"; });
    return result;
}

std::size_t characterCount(std::string_view text) {
    if (bytesAreCharacters(text)) return text.size();
    std::size_t count = 0;
    forEachCharacter(text, [&](std::string_view) { return ++count, true; });
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    if (bytesAreCharacters(text)) return text.substr(0, count);
    std::size_t bytes = 0;
    std::size_t taken = 0;
    forEachCharacter(text, [&](std::string_view character) {
        if (taken == count) return false;
        ++taken;
        bytes += character.size();
        return true;
    });
    return text.substr(0, bytes);
}

std::string collationKey(std::string_view text) {
    thread_local const auto collator = makeCollator();
    if (collator == nullptr) return lowercased(text);
    const auto wide = icu::UnicodeString::fromUTF8(piece(text));
    std::string key(text.size() * 3 + 16, '\0');
    const auto fill = [&] {
        return collator->getSortKey(wide, reinterpret_cast<std::uint8_t*>(key.data()),
                                    static_cast<std::int32_t>(key.size()));
    };
    auto length = static_cast<std::size_t>(fill());
    if (length > key.size()) {
        key.resize(length);
        length = static_cast<std::size_t>(fill());
    }
    key.resize(length);
    return key;
}

}  // namespace nookwise
