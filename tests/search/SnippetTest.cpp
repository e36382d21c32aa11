#include "platform/Text.h"
#include "search/Snippet.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

/// `count` copies of the text.
std::string times(std::size_t count, std::string_view text) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

/// Around the first place of `word`, which is in lower case.
std::string around(std::string_view text, std::string_view word) {
    const auto lower = lowercased(text);
    return snippet(text, lower, lower.find(word));
}

TEST(Snippet, takes30CharactersBeforeAnd60FromTheMatch) {
    const auto text = times(100, "a") + "KITE" + times(100, "b");
    EXPECT_EQ(around(text, "kite"), "…" + times(30, "a") + "KITE" + times(56, "b") + "…");
}

TEST(Snippet, marksOnlyWhatWasLeftOff) {
    EXPECT_EQ(around("kite", "kite"), "kite");
    EXPECT_EQ(around(times(30, "a") + "kite", "kite"), times(30, "a") + "kite");
    EXPECT_EQ(around(times(31, "a") + "kite", "kite"), "…" + times(30, "a") + "kite");
    EXPECT_EQ(around("kite" + times(56, "b"), "kite"), "kite" + times(56, "b"));
    EXPECT_EQ(around("kite" + times(57, "b"), "kite"), "kite" + times(56, "b") + "…");
}

TEST(Snippet, standsOnOneLine) {
    EXPECT_EQ(around("one\ntwo\n\nkite\n", "kite"), "one two  kite ");
    EXPECT_EQ(around("one\r\nkite", "kite"), "one\r kite");
    EXPECT_EQ(around("tab\tkite", "kite"), "tab\tkite");
}

TEST(Snippet, countsCharactersAndBreaksNone) {
    const auto family = "👩‍👩‍👧"s;
    const auto accented = "e\u0301"s;
    EXPECT_EQ(around(times(40, family) + "kite" + times(100, accented), "kite"),
              "…" + times(30, family) + "kite" + times(56, accented) + "…");
    EXPECT_EQ(around(times(40, "ж") + "кот" + times(100, "漢"), "кот"),
              "…" + times(30, "ж") + "кот" + times(57, "漢") + "…");
}

TEST(Snippet, beginsAtTheCharacterThatTheMatchIsInside) {
    EXPECT_EQ(around(times(31, "a") + "e\u0301" + times(100, "b"), "\u0301"),
              "…" + times(30, "a") + "e\u0301" + times(59, "b") + "…");
}

TEST(Snippet, readsOnForCharactersOfManyBytes) {
    const auto tall = "e" + times(200, "\u0301");
    EXPECT_EQ(around("kite" + times(100, tall), "kite"), "kite" + times(56, tall) + "…");
    EXPECT_EQ(around("kite" + times(10, tall), "kite"), "kite" + times(10, tall));
}

TEST(Snippet, staysInATextThatLowerCaseMadeLonger) {
    // Each letter becomes two code points, but one character.
    EXPECT_EQ(around(times(40, "İ") + "KITE", "kite"), "…" + times(30, "İ") + "KITE");
    EXPECT_EQ(snippet("short", times(100, "x") + "kite", 100), "…");
    EXPECT_EQ(snippet("short", times(33, "x") + "kite", 33), "…rt");
    EXPECT_EQ(snippet("", "kite", 0), "");
    EXPECT_EQ(snippet("", times(31, "x"), 31), "…");
}

TEST(Snippet, leavesBytesThatAreNoText) {
    EXPECT_EQ(around("\xff\xfeKITE\0\xe2\x82"s, "kite"), "\xff\xfeKITE\0\xe2\x82"s);
    EXPECT_EQ(around("kite" + times(2'000, "\x80"), "kite"), "kite" + times(56, "\x80") + "…");
}

}  // namespace
}  // namespace nookwise
