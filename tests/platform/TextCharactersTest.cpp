#include "platform/Text.h"
#include "platform/TextCharacters.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

/// Texts of characters of several code points, and of bytes that are none.
const std::vector<std::string> pieces{
    "a",
    "b",
    " ",
    "1",
    ",",
    "\r",
    "\n",
    "\t",
    "\0"s,
    "ä",
    "ж",
    "漢",
    "각",
    "한",
    "\u1100",
    "\u1161",
    "\u11a8",  // parts of Korean syllables
    "\u0301",
    "\u200d",
    "\ufe0f",
    "\u0600",
    "\u0e33",
    "\u0903",  // joining the text beside them
    "क",
    "\u094d",
    "ष",
    "👩",
    "👍",
    "\U0001F3FD",
    "🇩",
    "🇪",
    "©",
    "\u00ad",
    "\u2028",
    "\x80",
    "\xff",
    "\xe2\x82",
    "\xc3",
    "\xf0\x9f\x91",
    "\xed\xa0\x80",
};

std::string randomText(std::mt19937& random) {
    std::string text;
    const auto length = std::uniform_int_distribution(0, 12)(random);
    std::uniform_int_distribution<std::size_t> any(0, pieces.size() - 1);
    for (int i = 0; i < length; ++i) text += pieces[any(random)];
    return text;
}

/// The same by another road: each character is the first one of what is left.
std::vector<TextRange> plainCharacters(std::string_view text) {
    std::vector<TextRange> all;
    std::size_t begin = 0;
    for (std::size_t count = 1; begin < text.size(); ++count) {
        const auto end = firstCharacters(text, count).size();
        all.push_back({begin, end});
        begin = end;
    }
    return all;
}

TEST(CharactersBefore, countsWholeCharacters) {
    EXPECT_EQ(charactersBefore("", 0), 0U);
    EXPECT_EQ(charactersBefore("abc", 0), 0U);
    EXPECT_EQ(charactersBefore("abc", 2), 2U);
    EXPECT_EQ(charactersBefore("abc", 3), 3U);
    EXPECT_EQ(charactersBefore("abc", 99), 3U);
    EXPECT_EQ(charactersBefore("äöü", 2), 1U);
    EXPECT_EQ(charactersBefore("äöü", 3), 1U) << "inside the second letter";
    EXPECT_EQ(charactersBefore("a\r\nb", 2), 1U) << "inside a line break";
    EXPECT_EQ(charactersBefore("a\r\nb", 3), 2U);
    EXPECT_EQ(charactersBefore("👩‍👩‍👧x", 18), 1U);
    EXPECT_EQ(charactersBefore("🇩🇪🇫🇷", 16), 2U);
}

TEST(Characters, areCutOutByNumber) {
    EXPECT_EQ(characters("abcdef", 1, 3), "bc");
    EXPECT_EQ(characters("abcdef", 0, 99), "abcdef");
    EXPECT_EQ(characters("abcdef", 6, 99), "");
    EXPECT_EQ(characters("abcdef", 99, 100), "");
    EXPECT_EQ(characters("abcdef", 3, 3), "");
    EXPECT_EQ(characters("abcdef", 3, 1), "");
    EXPECT_EQ(characters("e\u0301a\r\nz", 0, 1), "e\u0301");
    EXPECT_EQ(characters("e\u0301a\r\nz", 2, 3), "\r\n");
    EXPECT_EQ(characters("x👍🏽🇩🇪z", 1, 3), "👍🏽🇩🇪");
}

TextRange whole(std::string_view text, TextRange range) {
    return wholeCharacters(text, {range}).front();
}

TEST(WholeCharacters, takeInWhatARangeCuts) {
    EXPECT_EQ(whole("abc", {1, 2}), (TextRange{1, 2}));
    EXPECT_EQ(whole("abc", {0, 0}), (TextRange{0, 0}));
    EXPECT_EQ(whole("abc", {3, 3}), (TextRange{3, 3}));
    EXPECT_EQ(whole("cafe\u0301s", {3, 4}), (TextRange{3, 6})) << "an accent follows";
    EXPECT_EQ(whole("cafe\u0301s", {4, 7}), (TextRange{3, 7}));
    EXPECT_EQ(whole("🇩🇪🇫🇷", {12, 16}), (TextRange{8, 16}));
    EXPECT_EQ(whole("äö", {1, 3}), (TextRange{0, 4})) << "inside letters";
    EXPECT_EQ(whole("äö", {1, 1}), (TextRange{0, 2}));
}

TEST(WholeCharacters, areFoundForManyRanges) {
    EXPECT_EQ(wholeCharacters("äbcöe\u0301f", {{1, 2}, {2, 3}, {5, 6}, {6, 7}, {9, 10}}),
              (std::vector<TextRange>{{0, 2}, {2, 3}, {4, 6}, {6, 9}, {9, 10}}));
    EXPECT_EQ(wholeCharacters("äö", {{0, 1}, {1, 2}, {3, 4}}),
              (std::vector<TextRange>{{0, 2}, {0, 2}, {2, 4}}));
    EXPECT_TRUE(wholeCharacters("äö", {}).empty());
}

TEST(Characters, areTheSameWhereverTheReadingBegins) {
    std::mt19937 random(7);
    for (int round = 0; round < 20'000; ++round) {
        const auto text = randomText(random);
        const auto all = plainCharacters(text);
        SCOPED_TRACE(testing::PrintToString(text));
        for (std::size_t i = 0; i < all.size(); ++i) {
            ASSERT_EQ(charactersBefore(text, all[i].begin), i);
            ASSERT_EQ(characters(text, i, i + 1),
                      std::string_view(text).substr(all[i].begin, all[i].end - all[i].begin));
            for (auto inside = all[i].begin; inside < all[i].end; ++inside)
                ASSERT_EQ(whole(text, {inside, inside + 1}), all[i]);
        }
        ASSERT_EQ(charactersBefore(text, text.size()), all.size());
        ASSERT_EQ(characters(text, 1, all.size()).size(),
                  all.empty() ? 0 : text.size() - all[0].end);
    }
}

}  // namespace
}  // namespace nookwise
