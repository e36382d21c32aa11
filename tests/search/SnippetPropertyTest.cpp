#include "platform/Text.h"
#include "platform/TextCharacters.h"
#include "search/Snippet.h"
#include "tests/search/PlainAnswers.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Pieces = std::vector<std::string>;

/// Long runs of one script, broken now and then by what joins, splits or is no text at all.
std::string nastyText(std::mt19937& random, std::size_t runs) {
    static const Pieces scripts{"plain ascii text ",
                                "Größe über ",
                                "Счёт за ",
                                "漢字仮名",
                                "한국어 각",
                                "हिन्दी क्ष ",
                                "שָׁלוֹם ",
                                "İstanbul İ",
                                "ΟΔΟΣ ",
                                "ẞȺ\u212A\u212B",
                                "ไทยกำ",
                                "əɪɔː "};
    static const Pieces breaks{"\u0301",
                               "\u200d",
                               "👩‍👩‍👧",
                               "🇩🇪🇫🇷🇮",
                               "\r\n",
                               "\r",
                               "\n",
                               "\xff",
                               "\xd0",
                               "\xe4\xb8",
                               "\xed\xa0\x80",
                               "\xc0\xaf",
                               "\0",
                               "\u1100\u1161\u11a8",
                               "©\ufe0f",
                               "\xf0\x9f",
                               "\x80",
                               "\u0488",
                               "\u0300\u0301",
                               "\u302a",
                               "\u00ad"};
    std::string text;
    for (; runs > 0; --runs) {
        const auto& script = scripts[random() % scripts.size()];
        for (auto left = random() % 20; left > 0; --left) text += script;
        const auto& one = breaks[random() % breaks.size()];
        text += one.empty() ? std::string(1, '\0') : one;
    }
    return text;
}

TEST(Snippets, ofNastyTextsAgreeWithTheirPlainDefinition) {
    std::mt19937 random(5);
    for (int round = 0; round < 300; ++round) {
        const auto text = nastyText(random, 1 + random() % 12);
        const auto lower = lowercased(text);
        for (int asked = 0; asked < 4 && !lower.empty(); ++asked) {
            const auto position = random() % lower.size();
            ASSERT_EQ(snippet(text, lower, position), plainSnippet(text, lower, position))
                << testing::PrintToString(text) << " " << position;
        }
    }
}

/// Where the characters of the text begin, and its end.
std::vector<bool> bordersOf(const std::string& text) {
    std::vector<bool> borders(text.size() + 1);
    std::size_t at = 0;
    for (const auto& character : plainCharacters(text)) {
        borders[at] = true;
        at += character.size();
    }
    borders[at] = true;
    return borders;
}

/// Whether the piece is somewhere in the text with whole characters beside it.
bool standsBetweenCharacters(const std::string& piece, const std::string& text) {
    const auto borders = bordersOf(text);
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
        if (borders[at] && borders[at + piece.size()]) return true;
    }
    return false;
}

TEST(Snippets, beginAndEndBetweenCharacters) {
    std::mt19937 random(6);
    const std::string ellipsis = "…";
    std::size_t cut = 0;
    for (int round = 0; round < 300; ++round) {
        auto text = nastyText(random, 1 + random() % 12);
        const auto lower = lowercased(text);
        if (lower.empty()) continue;
        auto shown = snippet(text, lower, random() % lower.size());
        std::replace(text.begin(), text.end(), '\n', ' ');
        const auto whole = shown.size();
        if (shown.starts_with(ellipsis)) shown.erase(0, ellipsis.size());
        if (shown.ends_with(ellipsis)) shown.resize(shown.size() - ellipsis.size());
        cut += shown.size() < whole;
        ASSERT_TRUE(standsBetweenCharacters(shown, text)) << testing::PrintToString(shown);
        EXPECT_LE(plainCharacters(shown).size(), 90U);
    }
    EXPECT_GT(cut, 100U);
}

TEST(Snippets, wouldBeSeenToEndInsideACharacter) {
    EXPECT_FALSE(standsBetweenCharacters("ae", "xae\u0301"));
    EXPECT_FALSE(standsBetweenCharacters("\u0301", "xae\u0301"));
    EXPECT_TRUE(standsBetweenCharacters("ae", "xae\u0301ae"));
}

TEST(Snippets, ofWordsDeepInsideCountEveryCodePointAsTheLibraryDoes) {
    const auto encoded = [](unsigned codePoint) {
        std::string bytes;
        if (codePoint < 0x80) return std::string(1, static_cast<char>(codePoint));
        if (codePoint < 0x800) {
            bytes += static_cast<char>(0xC0U | codePoint >> 6U);
        } else {
            bytes += static_cast<char>(0xE0U | codePoint >> 12U);
            bytes += static_cast<char>(0x80U | (codePoint >> 6U & 0x3FU));
        }
        return bytes + static_cast<char>(0x80U | (codePoint & 0x3FU));
    };
    // Blocks are of 64 bytes: around and inside them, beside letters and beside itself.
    for (unsigned codePoint = 1; codePoint < 0x10000; ++codePoint) {
        const auto one = encoded(codePoint);
        auto text = "ж" + one + one + "a" + one + "漢" + one;
        while (text.size() < 70) text += "b" + one;
        ASSERT_EQ(charactersBefore(text, text.size()), characterCount(text)) << codePoint;
    }
}

}  // namespace
}  // namespace nookwise
