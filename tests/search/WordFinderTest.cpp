#include "search/WordFinder.h"

#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

class FindingWords : public testing::TestWithParam<WordFinder::Instructions> {
  protected:
    void SetUp() override {
        if (!WordFinder::isAvailable(GetParam())) GTEST_SKIP() << "not on this machine";
    }

    void expectAsFind(const std::string& text, const std::string& word) {
        // Without a byte behind it that could be read unnoticed.
        const std::vector<char> exact(text.begin(), text.end());
        const std::string_view view(exact.data(), exact.size());
        ASSERT_EQ(WordFinder(word, GetParam()).find(view), text.find(word))
            << testing::PrintToString(word) << " in " << testing::PrintToString(text);
    }
};

TEST_P(FindingWords, findsWhatFindFindsInTextsOfEveryLength) {
    for (std::size_t size = 0; size < 300; ++size) {
        for (const std::string word : {"k", "ki", "kite", "zzk"}) {
            const std::string gap(size, 'z');
            expectAsFind(gap, word);
            expectAsFind(gap + word, word);
            expectAsFind(gap + word + gap + word, word);
            expectAsFind(word + gap, word);
            expectAsFind(gap + word.substr(0, word.size() - 1), word);
        }
    }
}

TEST_P(FindingWords, findsWhatFindFindsInTextsOfFewLetters) {
    std::mt19937 random(3);
    const auto letters = [&](std::size_t size) {
        std::string text;
        while (text.size() < size) text += "aab\xd0\0"s[random() % 5];
        return text;
    };
    for (int round = 0; round < 20'000; ++round)
        expectAsFind(letters(random() % 200), letters(1 + random() % 8));
}

TEST_P(FindingWords, findsAnEmptyWordAtTheBeginning) {
    expectAsFind("", "");
    expectAsFind("kite", "");
}

TEST_P(FindingWords, isNotMisled) {
    // Every place looks like the word until its last letters.
    const std::string half(3'000, 'a');
    std::string text;
    for (int i = 0; i < 20; ++i) text += half + "b";
    expectAsFind(text, half + "c");
    expectAsFind(text, half + "b" + half + "c");
    expectAsFind(text + half + "c", half + "c");
}

INSTANTIATE_TEST_SUITE_P(With, FindingWords,
                         testing::Values(WordFinder::Instructions::any,
                                         WordFinder::Instructions::avx2));

TEST(WordFinder, expectsRareLettersInFewerTexts) {
    EXPECT_LT(WordFinder("zx").commonness(), WordFinder("er").commonness());
}

}  // namespace
}  // namespace nookwise
