#include "fileops/FirstLine.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

struct Case {
    std::string text;
    std::optional<std::string> line;
};

class FirstLine : public testing::TestWithParam<Case> {};

TEST_P(FirstLine, isFound) {
    EXPECT_EQ(firstLine(GetParam().text), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    UsableLines, FirstLine,
    testing::Values(Case{"", std::nullopt}, Case{"12/04", std::nullopt}, Case{"abc", std::nullopt},
                    Case{"abc\nd", std::nullopt}, Case{"— 12 —\nPage 3", "Page 3"},
                    Case{"abc 123\nabcd", "abcd"}, Case{"\n\n  \n\tInvoice\nMore", "Invoice"},
                    Case{"a-b-c-d", "a-b-c-d"}, Case{"=====\n1234567890123\nab\nTotal\n", "Total"},
                    Case{"_|_|_@@@@[][]^^^\nUse", std::nullopt}, Case{"Дом 7", std::nullopt},
                    Case{"Дома 7", "Дома 7"}, Case{"東京\n東京都庁", "東京都庁"}));

INSTANTIATE_TEST_SUITE_P(
    LineBreaks, FirstLine,
    testing::Values(Case{"ab\ncd", std::nullopt}, Case{"ab\rcd", std::nullopt},
                    Case{"ab\r\ncd", std::nullopt}, Case{"ab\vcd", std::nullopt},
                    Case{"ab\fcd", std::nullopt}, Case{"ab\u0085cd", std::nullopt},
                    Case{"ab\u2028cd", std::nullopt}, Case{"ab\u2029cd", std::nullopt},
                    Case{"12\u2028Invoice\u2029Total", "Invoice"},
                    Case{"Invoice\u0085Total", "Invoice"}, Case{"Invoice\fTotal", "Invoice"}));

INSTANTIATE_TEST_SUITE_P(
    CombinedLetters, FirstLine,
    testing::Values(Case{"e\u0301e\u0301e\u0301", std::nullopt},
                    Case{"e\u0301te\u0301s", "e\u0301te\u0301s"},
                    // Three syllables in parts are three letters.
                    Case{"\u1112\u1161\u11ab\u1100\u1173\u11af\u1106\u1161\u11af", std::nullopt},
                    Case{"\u0301\u0301\u0301\u0301", std::nullopt},
                    Case{"1\u0301nvoice", "1\u0301nvoice"}));

INSTANTIATE_TEST_SUITE_P(
    Names, FirstLine,
    testing::Values(Case{"Invoice: ACME/2026", "Invoice ACME-2026"},
                    Case{"  •  ** Invoice 7 **  ", "Invoice 7 **"}, Case{"¿Qué tal?", "Qué tal?"},
                    Case{"(2) Invoice", "2) Invoice"},
                    Case{"Total\t\t of \u00a0 May", "Total of May"}, Case{"Total :", "Total"},
                    Case{"10:30 at/the/gate", "10 30 at-the-gate"},
                    Case{"...hidden file", "hidden file"}, Case{"../../etc/passwd", "etc-passwd"},
                    Case{"😀 Party 🎉 tonight", "Party 🎉 tonight"}));

INSTANTIATE_TEST_SUITE_P(
    CleanedNames, FirstLine,
    testing::Values(Case{"Inv\u0600\xffoice", "Inv\u0600\uFFFDoice"},
                    Case{"Inv\0oice"s, "Inv oice"}, Case{"In\x1b[1mvoice", "In [1mvoice"},
                    Case{"In\u00advoice", "Invoice"}, Case{"\ufeffInvoice", "Invoice"},
                    Case{"Invoice\u202efdp.exe", "Invoicefdp.exe"},
                    Case{"Inv\xffoice\xe2\x82", "Invoice"},
                    Case{"abcd \u0600/ef", "abcd \u0600-ef"}, Case{"فاتورة رقم ٧", "فاتورة رقم ٧"},
                    Case{"\u200fفاتورة", "فاتورة"}));

TEST(FirstLineLength, isAtMostFiftyCharacters) {
    EXPECT_EQ(firstLine(std::string(50, 'a')), std::string(50, 'a'));
    EXPECT_EQ(firstLine(std::string(51, 'a')), std::string(50, 'a'));
}

TEST(FirstLineLength, isTrimmedAfterTheCut) {
    EXPECT_EQ(firstLine(std::string(49, 'a') + " bcd"), std::string(49, 'a'));
    EXPECT_EQ(firstLine(std::string(48, 'a') + " bcd"), std::string(48, 'a') + " b");
    EXPECT_EQ(firstLine(std::string(49, 'a') + "       "), std::string(49, 'a'));
}

TEST(FirstLineLength, isTrimmedWhereTheLastColonWasJoinedToASign) {
    const auto begin = std::string(48, 'a') + "\u0600";
    EXPECT_EQ(firstLine(begin + ": x"), begin);
}

TEST(FirstLineLength, countsWholeCharacters) {
    std::string letters;
    for (int i = 0; i < 60; ++i) letters += "e\u0301";
    EXPECT_EQ(firstLine(letters), letters.substr(0, 150));
    std::string family = "abcd";
    for (int i = 0; i < 60; ++i) family += "👩‍👩‍👧";
    const auto line = firstLine(family);
    ASSERT_TRUE(line);
    EXPECT_EQ(characterCount(*line), 50u);
    EXPECT_TRUE(line->ends_with("👩‍👩‍👧"));
}

TEST(FirstLineLength, countsWhatIsLeftOfTheLine) {
    const auto line = firstLine("***   " + std::string(30, 'a') + "   " + std::string(30, 'b'));
    EXPECT_EQ(line, std::string(30, 'a') + " " + std::string(19, 'b'));
}

TEST(FirstLineOfManyLines, passesHundredsOfLinesOfSymbols) {
    std::string text;
    for (int i = 0; i < 500; ++i) text += "—— ·· | " + std::to_string(i) + " a ** 日本\n";
    EXPECT_EQ(firstLine(text), std::nullopt);
    EXPECT_EQ(firstLine(text + "The end"), "The end");
}

TEST(FirstLineOfManyLines, isFoundAtAnyDistance) {
    for (std::size_t before = 0; before < 40; ++before) {
        const auto text =
            std::string(before, '7') + "\n" + std::string(before % 9, '-') + "Total 5";
        EXPECT_EQ(firstLine(text), "Total 5") << before;
    }
}

TEST(FirstLineOfALongLine, isItsBeginning) {
    EXPECT_EQ(firstLine(std::string(1'000'000, '1') + "abcd"), std::string(50, '1'));
    EXPECT_EQ(firstLine(std::string(1'000'000, ' ') + "abcd"), "abcd");
}

TEST(FirstLines, remembersALineForAsLongAsTheTextStays) {
    FirstLines lines;
    const FileUrl file("/a.pdf");
    EXPECT_EQ(lines.of(file, SharedBytes("Invoice")), "Invoice");
    EXPECT_EQ(lines.of(file, SharedBytes("Invoice")), "Invoice");
    EXPECT_EQ(lines.of(file, SharedBytes("Receipt")), "Receipt");
    EXPECT_EQ(lines.of(file, SharedBytes("12")), std::nullopt);
    EXPECT_EQ(lines.of(FileUrl("/b.pdf"), SharedBytes()), std::nullopt);
}

}  // namespace
}  // namespace nookwise
