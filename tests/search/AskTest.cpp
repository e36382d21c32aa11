#include "search/Ask.h"
#include "tests/search/Corpus.h"

#include <cmath>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

ParsedQuery only(QueryFilter::Rule rule) {
    return {{{"", "", "", std::move(rule)}}, {}};
}

TEST(Ask, answersNothingToAnEmptyQuestion) {
    Corpus corpus;
    corpus.addWithText("/h/a.pdf", "text");
    EXPECT_TRUE(corpus.ask("").empty());
    EXPECT_TRUE(corpus.ask("show me the files").empty());
}

TEST(Ask, findsAWordInANameWithoutASnippet) {
    Corpus corpus;
    corpus.addWithText("/h/Invoice-2023.pdf", "an invoice");
    const auto results = corpus.ask("invoice");
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].file, corpus.files[0]);
    EXPECT_EQ(results[0].snippet, std::nullopt);
}

TEST(Ask, findsAWordInATextWithASnippet) {
    Corpus corpus;
    corpus.addWithText("/h/scan.png", "Blue Kite\nINVOICE 7");
    const auto results = corpus.ask("invoice");
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].snippet, "Blue Kite INVOICE 7");
}

TEST(Ask, looksAtTheNameOnlyNotAtTheFolders) {
    Corpus corpus;
    corpus.add("/h/invoice/a.pdf");
    EXPECT_EQ(corpus.paths("invoice"), Paths{});
    EXPECT_EQ(corpus.paths("a.pdf"), Paths{"/h/invoice/a.pdf"}) << "extension included";
}

TEST(Ask, wantsEveryWordInTheNameOrTheText) {
    Corpus corpus;
    corpus.addWithText("/h/kite.pdf", "blue");
    corpus.addWithText("/h/other.pdf", "blue");
    corpus.add("/h/kite");
    EXPECT_EQ(corpus.paths("blue kite"), Paths{"/h/kite.pdf"});
    EXPECT_EQ(corpus.paths("kite blue kite"), Paths{"/h/kite.pdf"});
    EXPECT_EQ(corpus.paths("kite blue red"), Paths{});
}

TEST(Ask, takesTheSnippetOfTheFirstWordThatOnlyTheTextHolds) {
    Corpus corpus;
    const std::string gap(200, '-');
    corpus.addWithText("/h/kite.pdf", "one " + gap + " two " + gap + " kite");
    EXPECT_EQ(corpus.ask("kite two one")[0].snippet,
              "…" + gap.substr(0, 29) + " two " + gap.substr(0, 56) + "…");
    EXPECT_EQ(corpus.ask("kite one two")[0].snippet, "one " + gap.substr(0, 56) + "…");
}

TEST(Ask, takesTheSnippetOfTheFirstPlace) {
    Corpus corpus;
    corpus.addWithText("/h/a.pdf", "kite " + std::string(200, '-') + " kite");
    EXPECT_EQ(corpus.ask("kite")[0].snippet, "kite " + std::string(55, '-') + "…");
}

TEST(Ask, matchesPiecesOfWordsWithoutFolding) {
    Corpus corpus;
    corpus.add("/h/Reinvoiced ÄRZTE.pdf");
    EXPECT_EQ(corpus.paths("invoice").size(), 1U);
    EXPECT_EQ(corpus.paths("ärzte").size(), 1U);
    EXPECT_EQ(corpus.paths("arzte").size(), 0U);
    EXPECT_EQ(corpus.paths("invoices").size(), 0U);
}

TEST(Ask, findsFilesThatHaveNoText) {
    Corpus corpus;
    corpus.add("/h/kite.zip");
    corpus.add("/h/other.zip");
    EXPECT_EQ(corpus.paths("kite"), Paths{"/h/kite.zip"});
}

TEST(Ask, lowercasesExtensions) {
    Corpus corpus;
    corpus.add("/h/A.PDF");
    corpus.add("/h/b.png");
    corpus.add("/h/pdf");
    corpus.add("/h/.pdf");
    corpus.add("/h/c.pdf.zip");
    EXPECT_EQ(corpus.paths("pdfs"), Paths{"/h/A.PDF"});
    EXPECT_TRUE(corpus.ask(only(QueryFilter::Exts{})).empty())
        << "an empty set lets nothing through";
}

TEST(Ask, comparesSizesInclusively) {
    Corpus corpus;
    corpus.add("/h/a").size = 99'999'999;
    corpus.add("/h/b").size = 100'000'000;
    corpus.add("/h/c").size = 100'000'001;
    EXPECT_EQ(corpus.paths("big"), (Paths{"/h/b", "/h/c"}));
    EXPECT_EQ(corpus.paths("under 100 mb"), (Paths{"/h/a", "/h/b"}));
    EXPECT_EQ(corpus.paths("over 99999999999999999999 gb"), Paths{});
    EXPECT_EQ(corpus.paths("under 99999999999999999999 gb").size(), 3U);
}

TEST(Ask, comparesTheDateAddedElseTheDateChanged) {
    const auto start = utc(2024, 2, 29, 23);
    const auto end = utc(2024, 3, 31, 22);
    Corpus corpus;
    corpus.add("/h/none");
    corpus.add("/h/used").lastUsed = start;
    corpus.add("/h/atEnd").added = end;
    corpus.add("/h/before").added = start - Seconds{0.001};
    corpus.add("/h/atStart").added = start;
    corpus.add("/h/changed").modified = start + Seconds{1};
    auto& both = corpus.add("/h/addedBefore");
    both.added = start - Seconds{1};
    both.modified = start;
    EXPECT_EQ(corpus.paths("march"), (Paths{"/h/changed", "/h/atStart"}));
}

TEST(Ask, wantsTheVerySourceThatIsKnown) {
    Corpus corpus;
    for (const auto* name : {"/h/a", "/h/b", "/h/c", "/h/d"}) corpus.add(name);
    corpus.sources[FileUrl("/h/a")] = SharedBytes("Gmail");
    corpus.sources[FileUrl("/h/b")] = SharedBytes("gmail");
    corpus.sources[FileUrl("/h/c")] = SharedBytes("mail.gmail.example");
    EXPECT_EQ(corpus.paths("from gmail"), Paths{"/h/a"});
    EXPECT_EQ(corpus.paths("from gmail from slack"), Paths{}) << "all filters must pass";
}

TEST(Ask, knowsScreenshotsByTheirNamesAlone) {
    Corpus corpus;
    for (const auto* name : {"/h/Screenshot 1.png", "/h/SCREEN SHOT.txt", "/h/CleanShot",
                             "/h/Снимок экрана 2", "/Screenshots/a.png", "/h/my screenshot.png"})
        corpus.add(name);
    EXPECT_EQ(corpus.paths("screenshots").size(), 4U);
}

TEST(Ask, sortsByLastUseElseDateAddedElseDateChanged) {
    Corpus corpus;
    corpus.add("/h/x-none");
    corpus.add("/h/x-changed").modified = utc(2024, 1, 2);
    corpus.add("/h/x-added").added = utc(2024, 1, 3);
    auto& used = corpus.add("/h/x-used");
    used.lastUsed = utc(2024, 1, 1);
    used.added = utc(2024, 2, 1);
    used.modified = utc(2024, 3, 1);
    auto& added = corpus.add("/h/x-addedLate");
    added.added = utc(2024, 1, 4);
    added.modified = utc(2023, 1, 1);
    EXPECT_EQ(corpus.paths("x-"),
              (Paths{"/h/x-addedLate", "/h/x-added", "/h/x-changed", "/h/x-used", "/h/x-none"}));
}

TEST(Ask, keepsTheOrderOfFilesWhereDatesAreEqual) {
    Corpus corpus;
    for (const auto* name : {"/h/x3", "/h/x1", "/h/x2"}) corpus.add(name).added = utc(2024, 1, 1);
    corpus.add("/h/xNone");
    corpus.add("/h/xAlsoNone");
    EXPECT_EQ(corpus.paths("x"), (Paths{"/h/x3", "/h/x1", "/h/x2", "/h/xNone", "/h/xAlsoNone"}));
    EXPECT_EQ(corpus.paths("x", 2), (Paths{"/h/x3", "/h/x1"}));
}

TEST(Ask, ranksMatchesInNamesAndTextsAlike) {
    Corpus corpus;
    corpus.add("/h/kite").added = utc(2024, 1, 1);
    corpus.addWithText("/h/other", "kite").added = utc(2024, 1, 2);
    EXPECT_EQ(corpus.paths("kite"), (Paths{"/h/other", "/h/kite"}));
}

TEST(Ask, returnsTheNewestUpToTheLimit) {
    Corpus corpus;
    for (unsigned day = 1; day <= 10; ++day)
        corpus.add("/h/x" + std::to_string(day)).added = utc(2024, 1, day);
    EXPECT_EQ(corpus.paths("x", 3), (Paths{"/h/x10", "/h/x9", "/h/x8"}));
    EXPECT_EQ(corpus.paths("x", 0), Paths{});
    EXPECT_EQ(corpus.paths("x", 10).size(), 10U);
    EXPECT_EQ(corpus.paths("x", static_cast<std::size_t>(-1)).size(), 10U);
}

TEST(Ask, standsDatesThatAreNoNumbers) {
    Corpus corpus;
    for (int i = 0; i < 100; ++i)
        corpus.add("/h/x" + std::to_string(i)).added =
            i % 3 == 0 ? Date(Seconds(std::nan(""))) : utc(2024, 1, 1, i);
    EXPECT_EQ(corpus.paths("x").size(), 100U);
    EXPECT_EQ(corpus.paths("x today").size(), 0U);
}

TEST(Ask, takesTextsThatAreNoText) {
    Corpus corpus;
    corpus.addWithText("/h/a", "x\0KITE\xff\xfe"s);
    corpus.addWithText("/h/kite\xff.png", "");
    EXPECT_EQ(corpus.paths("kite"), (Paths{"/h/a", "/h/kite\xff.png"}));
    EXPECT_EQ(corpus.ask("kite")[0].snippet, "x\0KITE\xff\xfe"s);
    EXPECT_EQ(corpus.paths("\xff").size(), 2U);
}

TEST(Ask, answersALongQuestion) {
    Corpus corpus;
    std::string text;
    for (int i = 0; text.size() < 1'000'000; ++i) text += "word" + std::to_string(i % 1'000) + " ";
    corpus.addWithText("/h/a", text);
    corpus.addWithText("/h/b", "word1");
    EXPECT_EQ(corpus.paths(text), Paths{"/h/a"});
}

}  // namespace
}  // namespace nookwise
