#include "platform/Text.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/utf8.h>

namespace nookwise {
namespace {

/// What the library makes of the whole text at once. Replaces bytes that are not UTF-8.
std::string lowercasedByIcu(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string lower;
    icu::StringByteSink<std::string> sink(&lower);
    icu::CaseMap::utf8ToLower("", 0, {text.data(), static_cast<std::int32_t>(text.size())}, sink,
                              nullptr, status);
    EXPECT_TRUE(U_SUCCESS(status));
    return lower;
}

std::string utf8(UChar32 codePoint) {
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, static_cast<std::uint32_t>(codePoint));
    return {bytes.begin(), bytes.begin() + length};
}

bool isSurrogate(UChar32 codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

TEST(LowerCase, ofEachCodePointIsTheLibrarys) {
    for (UChar32 codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (isSurrogate(codePoint)) continue;
        const auto text = utf8(codePoint);
        ASSERT_EQ(lowercased(text), lowercasedByIcu(text)) << codePoint;
        const auto amongOthers = "I." + text + "A" + text + "\u0307";
        ASSERT_EQ(lowercased(amongOthers), lowercasedByIcu(amongOthers)) << codePoint;
    }
}

/// Letters that are special in some way, others, and what stands between them.
UChar32 anyCodePoint(std::mt19937& random) {
    constexpr std::array<UChar32, 16> special{0x3A3,  0x3A3,  0x3A3,   0x391, 0x3C2, 0x130,
                                              0x131,  0x307,  0x345,   0xAD,  0x2BC, 0x23A,
                                              0x1E9E, 0x212A, 0x10400, 0x1F88};
    switch (random() % 5) {
        case 0:
            return special[random() % special.size()];
        case 1:
            return static_cast<UChar32>(random() % 0xD800);
        case 2:
            return static_cast<UChar32>(0xC0 + random() % 0x190);
        default:
            return static_cast<UChar32>(random() % 0x80);
    }
}

TEST(LowerCase, ofRandomTextsIsTheLibrarys) {
    std::mt19937 random(11);
    for (int round = 0; round < 50'000; ++round) {
        std::string text;
        for (auto length = random() % 40; length > 0; --length) text += utf8(anyCodePoint(random));
        ASSERT_EQ(lowercased(text), lowercasedByIcu(text)) << text;
    }
}

TEST(LowerCase, takesAnyBytes) {
    std::mt19937 random(12);
    for (int round = 0; round < 50'000; ++round) {
        std::string bytes;
        for (auto length = random() % 20; length > 0; --length)
            bytes +=
                static_cast<char>(random() % 2 == 0 ? random() % 0x100 : 0xC0 + random() % 0x40);
        const auto lower = lowercased(bytes);
        ASSERT_EQ(isWellFormed(lower), isWellFormed(bytes)) << testing::PrintToString(bytes);
        if (isWellFormed(bytes)) {
            ASSERT_EQ(lower, lowercasedByIcu(bytes));
        }
    }
}

TEST(LowerCase, ofASigmaDependsOnWhatIsAroundIt) {
    EXPECT_EQ(lowercased("ΑΣ. ΣΑΣ'"), "ας. σας'");
    EXPECT_EQ(lowercased("ΑΣ.Β"), "ασ.β");
    EXPECT_EQ(lowercased("Σ"), "σ");
    EXPECT_EQ(lowercased("AΣ...........B"), "aσ...........b");
    // What is not UTF-8 ends a word.
    EXPECT_EQ(lowercased("AΣ\xff"
                         "B"),
              "aς\xff"
              "b");
}

TEST(WellFormed, isAllThatIsUtf8) {
    for (const auto* const text : {"", "a", "ascii of more than eight bytes", "ä", "aaaaaaaaä",
                                   "\uFFFF", "\U0010FFFF", "日本語", "𐐀"})
        EXPECT_TRUE(isWellFormed(text)) << text;
    EXPECT_TRUE(isWellFormed(std::string_view("\0", 1)));
    for (const auto* const text :
         {"\x80", "aaaaaaaa\xc3", "\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82",
          "\xf8\x88\x80\x80\x80", "aaaaaaaaaaaaaaaa\xff", "\xe0\x80\x80"})
        EXPECT_FALSE(isWellFormed(text)) << testing::PrintToString(std::string(text));
}

}  // namespace
}  // namespace nookwise
