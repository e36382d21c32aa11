#include "platform/Text.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

// The locale of a desktop that was set up without one, chosen before anything asks for the user's.
const int localeIsChosen = setenv("LC_ALL", "C.UTF-8", 1);

struct Mapping {
    std::string text;
    std::string mapped;
};

class LowerCase : public testing::TestWithParam<Mapping> {};

TEST_P(LowerCase, followsTheUnicodeDefaultRules) {
    EXPECT_EQ(lowercased(GetParam().text), GetParam().mapped);
}

INSTANTIATE_TEST_SUITE_P(Texts, LowerCase,
                         testing::Values(Mapping{"", ""}, Mapping{"JPG", "jpg"}, Mapping{"I", "i"},
                                         Mapping{"A\0B"s, "a\0b"s}, Mapping{"@[`{", "@[`{"},
                                         Mapping{"ÄÖÜ", "äöü"},
                                         Mapping{"СНИМОК ЭКРАНА", "снимок экрана"},
                                         Mapping{"İ", "i\xcc\x87"}, Mapping{"ΟΔΟΣ", "οδος"},
                                         Mapping{"ẞ", "ß"}, Mapping{"𐐀", "𐐨"}, Mapping{"Ⅷ", "ⅷ"}));

TEST(UpperCase, followsTheUnicodeDefaultRules) {
    EXPECT_EQ(uppercased("markdown"), "MARKDOWN");
    EXPECT_EQ(uppercased("straße"), "STRASSE");
    EXPECT_EQ(uppercased("снимок"), "СНИМОК");
    EXPECT_EQ(uppercased("i"), "I");
}

class BytesThatAreNotUtf8 : public testing::TestWithParam<std::string> {};

TEST_P(BytesThatAreNotUtf8, passThroughCaseMappingUntouched) {
    const auto& broken = GetParam();
    EXPECT_EQ(lowercased("ÄB" + broken + "Cd"), "äb" + broken + "cd");
    EXPECT_EQ(uppercased("äb" + broken + "Cd"), "ÄB" + broken + "CD");
    EXPECT_EQ(lowercased(broken), broken);
    EXPECT_EQ(lowercased("AB" + broken), "ab" + broken);
}

TEST_P(BytesThatAreNotUtf8, areNoLettersAndCountAsCharacters) {
    const auto& broken = GetParam();
    EXPECT_EQ(lowercasedLetters("Blue " + broken + "Kite"), "bluekite");
    EXPECT_GE(characterCount("ab" + broken), 3u);
    EXPECT_LE(characterCount("ab" + broken), 2u + broken.size());
    EXPECT_EQ(firstCharacters("ab" + broken, 2), "ab");
    EXPECT_EQ(firstCharacters("ab" + broken, 100), "ab" + broken);
}

TEST_P(BytesThatAreNotUtf8, areMarkedInWellFormedText) {
    const auto text = wellFormed("äb" + GetParam() + "c");
    EXPECT_TRUE(text.starts_with("äb\uFFFD"));
    EXPECT_TRUE(text.ends_with("\uFFFDc"));
    EXPECT_EQ(wellFormed(text), text);
}

TEST_P(BytesThatAreNotUtf8, haveAPlaceInTheOrderOfNames) {
    EXPECT_EQ(collationKey(GetParam()), collationKey(GetParam()));
    EXPECT_NE(collationKey("a" + GetParam()), collationKey("b" + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Sequences, BytesThatAreNotUtf8,
                         testing::Values("\xff", "\xfe\xff", "\x80", "\xc3", "\xe2\x82",
                                         "\xf0\x9f\x98", "\xc0\xaf", "\xed\xa0\x80",
                                         "\xf4\x90\x80\x80", "\xc3\xff\xc3"));

struct Letters {
    std::string text;
    std::string letters;
};

class LowerCaseLetters : public testing::TestWithParam<Letters> {};

TEST_P(LowerCaseLetters, keepNeitherDigitsNorSpacesNorSigns) {
    EXPECT_EQ(lowercasedLetters(GetParam().text), GetParam().letters);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LowerCaseLetters,
    testing::Values(Letters{"Blue Kite Setup 1.2", "bluekitesetup"}, Letters{"", ""},
                    Letters{"1.2-3_4", ""}, Letters{"A\0b"s, "ab"}, Letters{"a+b=c€™", "abc"},
                    Letters{"Ünï-Codé 7", "ünïcodé"}, Letters{"微信 3.9", "微信"},
                    Letters{"😀Smile", "smile"}, Letters{"٣ثلاثة", "ثلاثة"},
                    Letters{"Cafe\xcc\x81", "caf\xc3\xa9"}, Letters{"1\xcc\x81z", "z"}));

TEST(LowerCaseLetters, areTheSameBytesForComposedAndDecomposedText) {
    EXPECT_EQ(lowercasedLetters("Caf\xc3\xa9 Setup"), lowercasedLetters("Cafe\xcc\x81 Setup"));
    EXPECT_EQ(lowercasedLetters("\xed\x95\x9c"),
              lowercasedLetters("\xe1\x84\x92\xe1\x85\xa1\xe1\x86\xab"));
}

struct Counting {
    std::string text;
    std::size_t count;
    /// The first character.
    std::string first;
};

class Characters : public testing::TestWithParam<Counting> {};

TEST_P(Characters, areWhatAPersonSeesAsOne) {
    EXPECT_EQ(characterCount(GetParam().text), GetParam().count);
    EXPECT_EQ(firstCharacters(GetParam().text, 1), GetParam().first);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Characters,
    testing::Values(Counting{"", 0, ""}, Counting{"abc", 3, "a"}, Counting{"äbc", 3, "ä"},
                    Counting{"e\xcc\x81z", 2, "e\xcc\x81"},
                    Counting{"👨‍👩‍👧‍👦!", 2, "👨‍👩‍👧‍👦"},
                    Counting{"🇩🇪🇫🇷", 2, "🇩🇪"}, Counting{"\r\nx", 2, "\r\n"},
                    Counting{"한글", 2, "한"}, Counting{"a\0b"s, 3, "a"}));

TEST(FirstCharacters, areAllOfThemWhenThereAreFewer) {
    EXPECT_EQ(firstCharacters("ab", 3), "ab");
    EXPECT_EQ(firstCharacters("äb", 3), "äb");
    EXPECT_EQ(firstCharacters("äb", 0), "");
    EXPECT_EQ(firstCharacters("markdown", 3), "mar");
}

TEST(CollationKey, ordersNamesAsAFileViewerDoes) {
    const std::vector<std::string> ordered{"a1", "a2",     "A10",     "a11",     "Äb",
                                           "b",  "file 9", "File 10", "file 100"};
    auto sorted = ordered;
    std::sort(sorted.begin(), sorted.end());
    std::stable_sort(sorted.begin(), sorted.end(), [](const std::string& a, const std::string& b) {
        return collationKey(a) < collationKey(b);
    });
    EXPECT_EQ(sorted, ordered);
}

TEST(CollationKey, ignoresCaseOnly) {
    EXPECT_EQ(collationKey("Report"), collationKey("rEPORT"));
    EXPECT_NE(collationKey("resume"), collationKey("résumé"));
    EXPECT_NE(collationKey("a1"), collationKey("a2"));
}

TEST(CollationKey, isTheSameForComposedAndDecomposedText) {
    EXPECT_EQ(collationKey("caf\xc3\xa9"), collationKey("cafe\xcc\x81"));
}

TEST(CollationKey, takesRunsOfManyDigits) {
    EXPECT_LT(collationKey("n" + std::string(250, '8')),
              collationKey("n1" + std::string(250, '0')));
    EXPECT_EQ(collationKey("file007"), collationKey("file7"));
}

TEST(Text, isWorkedOnBySeveralThreadsAtOnce) {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 200; ++round) {
                ASSERT_EQ(lowercased("ÄÖÜ"), "äöü");
                ASSERT_EQ(characterCount("🇩🇪🇫🇷"), 2u);
                ASSERT_LT(collationKey("a2"), collationKey("a10"));
            }
        });
    }
}

}  // namespace
}  // namespace nookwise
