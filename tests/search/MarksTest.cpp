#include "search/Marks.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;
using Words = std::vector<std::string>;

/// The text with brackets around what is marked.
std::string marked(std::string text, const Words& words) {
    const auto ranges = matchRanges(text, words);
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
        text.insert(range->end, "]");
        text.insert(range->begin, "[");
    }
    return text;
}

TEST(Marks, standWhereAWordStands) {
    EXPECT_EQ(marked("A kite, a Kite, KITES", {"kite"}), "A [kite], a [Kite], [KITE]S");
    EXPECT_EQ(marked("kite", {"kites"}), "kite");
    EXPECT_EQ(marked("", {"kite"}), "");
    EXPECT_EQ(marked("kite", {}), "kite");
    EXPECT_EQ(marked("kite", {""}), "kite");
}

TEST(Marks, ofSeveralWordsAreInTheOrderOfTheText) {
    EXPECT_EQ(marked("blue kite over blue", {"kite", "blue"}), "[blue] [kite] over [blue]");
}

TEST(Marks, neverTouch) {
    EXPECT_EQ(marked("bluekite", {"kite", "blue"}), "[bluekite]");
    EXPECT_EQ(marked("ananan", {"anan"}), "[ananan]");
    EXPECT_EQ(marked("abcdef", {"bcd", "cde", "d"}), "a[bcde]f");
}

TEST(Marks, ignoreCaseInEveryScript) {
    EXPECT_EQ(marked("ÄRZTE und Ärzte", {"ärzte"}), "[ÄRZTE] und [Ärzte]");
    EXPECT_EQ(marked("СЧЁТ", {"счёт"}), "[СЧЁТ]");
    EXPECT_EQ(marked("ΟΔΟΣ", {"οδος"}), "[ΟΔΟΣ]");
}

TEST(Marks, standAtTheirPlaceWhereLowerCaseHasAnotherLength) {
    EXPECT_EQ(marked("İİİ kite İ", {"kite"}), "İİİ [kite] İ");
    EXPECT_EQ(marked("\u212A\u212A kite \u212A", {"kite"}), "\u212A\u212A [kite] \u212A");
    EXPECT_EQ(marked("ẞẞ ȺȺ kite", {"kite"}), "ẞẞ ȺȺ [kite]");
    EXPECT_EQ(marked("\u212Aite", {"kite"}), "[\u212Aite]");
    EXPECT_EQ(marked("aİb", {"i"}), "a[İ]b") << "a part of what became two";
    EXPECT_EQ(marked("aİb", {"\u0307"}), "a[İ]b");
    EXPECT_EQ(marked("aİb", {"\u0307b"}), "a[İb]");
    EXPECT_EQ(marked("aİb", {"ai"}), "[aİ]b");
}

TEST(Marks, takeInWholeCharacters) {
    EXPECT_EQ(marked("cafe\u0301s", {"cafe"}), "[cafe\u0301]s");
    EXPECT_EQ(marked("👩‍👩‍👧 x", {"👩"}), "[👩‍👩‍👧] x");
    EXPECT_EQ(marked("a\r\nb", {"\n"}), "a[\r\n]b");
    EXPECT_EQ(marked("🇩🇪🇫🇷", {"🇪🇫"}), "[🇩🇪🇫🇷]");
}

TEST(Marks, takeBytesThatAreNoText) {
    EXPECT_EQ(marked("\xff"
                     "a\xff",
                     {"\xff"}),
              "[\xff]a[\xff]");
    EXPECT_EQ(marked("a\0KITE"s, {"kite"}), "a\0[KITE]"s);
    EXPECT_EQ(marked("ä", {"\xa4"}), "[ä]") << "never inside a letter";
}

TEST(Marks, ofLongWordsOfOneLetterAreFoundInOnePass) {
    const std::string letters(1'000'000, 'a');
    const std::string word(300'000, 'a');
    EXPECT_EQ(matchRanges(letters, Words{word}), (std::vector<TextRange>{{0, letters.size()}}));
    EXPECT_TRUE(matchRanges(letters, Words{word + "b"}).empty());
    EXPECT_EQ(matchRanges(letters + "b", Words{word + "b"}),
              (std::vector<TextRange>{{letters.size() - word.size(), letters.size() + 1}}));
}

TEST(Marks, areWhereverAWordStands) {
    std::mt19937 random(9);
    const auto letters = [&](std::size_t size) {
        std::string text;
        while (text.size() < size) text += "abc"[random() % 3 * (random() % 2)];
        return text;
    };
    for (int round = 0; round < 5'000; ++round) {
        const auto text = letters(random() % 40);
        const Words words{letters(1 + random() % 6), letters(1 + random() % 3)};
        std::string isMarked(text.size(), '-');
        for (const auto& word : words) {
            for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
                isMarked.replace(at, word.size(), word.size(), '#');
        }
        std::string found(text.size(), '-');
        for (const auto range : matchRanges(text, words))
            found.replace(range.begin, range.end - range.begin, range.end - range.begin, '#');
        ASSERT_EQ(found, isMarked) << text << " " << words[0] << " " << words[1];
    }
}

}  // namespace
}  // namespace nookwise
