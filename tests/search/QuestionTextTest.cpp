#include "search/CaseAlignment.h"
#include "search/QueryParser.h"
#include "search/QuestionText.h"
#include "tests/search/Berlin.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// The question without its filter of that title.
std::string without(std::string_view question, std::string_view title) {
    const auto query = QueryParser::parse(question, now);
    const auto filter = std::ranges::find(query.filters, title, &QueryFilter::title);
    EXPECT_NE(filter, query.filters.end()) << question;
    return filter == query.filters.end() ? "" : removePhrase(question, *filter);
}

TEST(RemovePhrase, leavesTheRestAsItIs) {
    const auto* question = "PDFs from Gmail last month";
    EXPECT_EQ(without(question, "Kind"), " from Gmail last month");
    EXPECT_EQ(without(question, "From"), "PDFs  last month");
    EXPECT_EQ(without(question, "When"), "PDFs from Gmail ");
    EXPECT_EQ(without("bigger than 2 GB movies", "Size"), " movies");
}

TEST(RemovePhrase, removesTheFirstPlaceOnly) {
    EXPECT_EQ(without("pdf invoice pdf", "Kind"), " invoice pdf");
}

TEST(RemovePhrase, findsWordsHoweverTheyAreSeparated) {
    EXPECT_EQ(without("pdfs from   gmail, today", "From"), "pdfs , today");
    EXPECT_EQ(without("from, “gmail” pdf", "From"), "” pdf");
    EXPECT_EQ(without("“from gmail” pdf", "From"), "“” pdf");
}

TEST(RemovePhrase, prefersWordsToPiecesOfWords) {
    EXPECT_EQ(without("docker doc", "Kind"), "docker ");
    EXPECT_EQ(without("marching mar 2023", "When"), "marching ");
    EXPECT_EQ(without("ersatz-today, today", "When"), "ersatz-today, ");
}

TEST(RemovePhrase, removesAPieceWhereTheQuestionHasNoSuchWords) {
    const QueryFilter filter{"Kind", "Docs", "doc", QueryFilter::Screenshots{}};
    EXPECT_EQ(removePhrase("DOCKER", filter), "KER");
}

TEST(RemovePhrase, leavesAQuestionThatDoesNotHoldIt) {
    const QueryFilter filter{"Kind", "PDF", "pdf", QueryFilter::Screenshots{}};
    EXPECT_EQ(removePhrase("invoice", filter), "invoice");
    EXPECT_EQ(removePhrase("", filter), "");
    const QueryFilter empty{"", "", "", QueryFilter::Screenshots{}};
    EXPECT_EQ(removePhrase("invoice", empty), "invoice");
}

TEST(RemovePhrase, appliesToTheQuestionAsTypedWhereLowerCaseHasAnotherLength) {
    EXPECT_EQ(without("İSTANBUL PDFs İ", "Kind"), "İSTANBUL  İ");
    EXPECT_EQ(without("ẞ ẞ \u212A PDF ẞ", "Kind"), "ẞ ẞ \u212A  ẞ");
    EXPECT_EQ(without("invoice \u212Aeynote ẞ", "Kind"), "invoice  ẞ") << "the phrase itself";
    EXPECT_EQ(without("Ⱥ over 2\u212A Ⱥ", "Size"), "Ⱥ  Ⱥ");
}

TEST(RemovePhrase, takesBytesThatAreNoText) {
    EXPECT_EQ(without("\xff İ\xff pdf \xe2", "Kind"), "\xff İ\xff  \xe2");
    const std::string many(500'000, 'x');
    EXPECT_EQ(without(many + " pdf " + many, "Kind"), many + "  " + many);
}

TEST(RemovePhrase, makesTheFilterGoAway) {
    for (std::string question :
         {"pdfs from gmail last month over 2 gb", "big, big today; march 2023 “via slack”",
          "docker doc document from  gmail from gmail", "İ jan 2023 jan this  week"}) {
        std::size_t left = QueryParser::parse(question, now).filters.size();
        for (std::size_t presses = 0; left > 0; ++presses) {
            ASSERT_LT(presses, 10U) << question;
            question = removePhrase(question, QueryParser::parse(question, now).filters.back());
            left = QueryParser::parse(question, now).filters.size();
        }
    }
}

TEST(CaseAlignment, knowsTheLengthOfEveryCodePointInLowerCase) {
    // Between letters that have no case of their own and others that have.
    for (char32_t codePoint = 0x80; codePoint <= 0x1FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) continue;
        std::string text = "A";
        const auto append = [&](char32_t bits) { text += static_cast<char>(bits); };
        if (codePoint < 0x800) {
            append(0xC0 | codePoint >> 6);
        } else if (codePoint < 0x10000) {
            append(0xE0 | codePoint >> 12);
            append(0x80 | (codePoint >> 6 & 0x3F));
        } else {
            append(0xF0 | codePoint >> 18);
            append(0x80 | (codePoint >> 12 & 0x3F));
            append(0x80 | (codePoint >> 6 & 0x3F));
        }
        append(0x80 | (codePoint & 0x3F));
        text += "Z";
        const CaseAlignment alignment(text);
        const auto lower = alignment.lower().size();
        ASSERT_EQ(alignment.inText({lower - 1, lower}), (TextRange{text.size() - 1, text.size()}))
            << std::hex << static_cast<std::uint32_t>(codePoint);
        ASSERT_EQ(alignment.inText({1, lower - 1}), (TextRange{1, text.size() - 1}));
        ASSERT_EQ(alignment.inText({0, lower}), (TextRange{0, text.size()}));
    }
}

}  // namespace
}  // namespace nookwise
