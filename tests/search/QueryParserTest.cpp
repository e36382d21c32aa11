#include "search/QueryParser.h"
#include "search/QueryWords.h"
#include "tests/search/Berlin.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

/// "Title/Label(phrase)" for each filter, then the words, all with a space between.
std::string outline(const ParsedQuery& query) {
    std::string text;
    for (const auto& filter : query.filters)
        text += filter.title + "/" + filter.label + "(" + filter.phrase + ") ";
    for (const auto& word : query.words) text += word + " ";
    if (!text.empty()) text.pop_back();
    return text;
}

std::string outline(std::string_view question) {
    return outline(QueryParser::parse(question, now));
}

struct Case {
    std::string question;
    std::string outline;

    friend void PrintTo(const Case& tested, std::ostream* stream) {
        *stream << testing::PrintToString(tested.question.substr(0, 80));
    }
};

class Question : public testing::TestWithParam<Case> {};

TEST_P(Question, isTakenApart) {
    EXPECT_EQ(outline(GetParam().question), GetParam().outline);
}

INSTANTIATE_TEST_SUITE_P(
    Sentences, Question,
    testing::Values(Case{"", ""}, Case{"invoice", "invoice"},
                    Case{"pdfs from gmail last month",
                         "Kind/PDF(pdfs) From/Gmail(from gmail) When/Last month(last month)"},
                    Case{"big videos", "Size/> 100 MB(big) Kind/Videos(videos)"},
                    Case{"gmail pdfs", "Kind/PDF(pdfs) gmail"},
                    Case{"images and pdfs", "Kind/Images(images)"}, Case{"show me the files", ""},
                    Case{"screenshots from yesterday",
                         "Kind/Screenshots(screenshots) When/Yesterday(yesterday)"},
                    Case{"wifi password", "wifi password"},
                    Case{"the Invoice invoice", "invoice invoice"},
                    Case{"huge zips via wetransfer this week",
                         "Size/> 100 MB(huge) Kind/Archives(zips) From/WeTransfer(via wetransfer) "
                         "When/This week(this week)"}));

INSTANTIATE_TEST_SUITE_P(
    Tokens, Question,
    testing::Values(Case{"  invoice   paid ", "invoice paid"},
                    Case{",invoice,,paid,", "invoice paid"},
                    Case{"“quoted” \"words\"", "quoted words"}, Case{"in\"come", "come"},
                    Case{"“unmatched", "unmatched"}, Case{"un\"matched", "un matched"},
                    Case{"\"pdf from “gmail", "Kind/PDF(pdf) From/Gmail(from gmail)"},
                    Case{"\"", ""}, Case{" ,“”\" , ", ""}, Case{"„low” quotes", "„low quotes"},
                    Case{"‘single’ 'quotes'", "‘single’ 'quotes'"}, Case{"tab\there", "tab\there"},
                    Case{"line\nbreak", "line\nbreak"}, Case{"no\u00a0break", "no\u00a0break"},
                    Case{"ideographic\u3000space", "ideographic\u3000space"},
                    Case{"invoice.pdf", "invoice.pdf"}, Case{"pdf.", "pdf."},
                    Case{"(pdf)", "(pdf)"}, Case{"from, gmail", "From/Gmail(from gmail)"},
                    Case{"from “gmail”", "From/Gmail(from gmail)"}));

INSTANTIATE_TEST_SUITE_P(
    Letters, Question,
    testing::Values(Case{"PDFS FROM GMail LAST Month",
                         "Kind/PDF(pdfs) From/Gmail(from gmail) When/Last month(last month)"},
                    Case{"Überweisung ÄRZTE", "überweisung ärzte"}, Case{"СЧЁТ", "счёт"},
                    Case{"İstanbul", "i\u0307stanbul"}, Case{"ΟΔΟΣ ΑΣ", "οδος ας"},
                    Case{"\u212Aeynote", "Kind/Slides(keynote)"},
                    Case{"חשבונית pdf", "Kind/PDF(pdf) חשבונית"},
                    Case{"\u202Epdf\u202C", "\u202Epdf\u202C"},
                    Case{"“חשבונית, \"pdf from \u200Fgmail", "Kind/PDF(pdf) חשבונית \u200Fgmail"},
                    Case{"חשבונית over 2 gb", "Size/> 2 GB(over 2 gb) חשבונית"},
                    Case{"発票 2024", "発票 2024"}, Case{"pdf\u0301", "pdf\u0301"}));

INSTANTIATE_TEST_SUITE_P(Kinds, Question,
                         testing::Values(Case{"pdfs images", "Kind/PDF(pdfs)"},
                                         Case{"docs pdf", "Kind/Docs(docs)"},
                                         Case{"pdf invoice pdf", "Kind/PDF(pdf) invoice"},
                                         Case{"screen", "Kind/Screenshots(screen)"},
                                         Case{"word", "Kind/Docs(word)"},
                                         Case{"screen shot", "Kind/Screenshots(screen) shot"},
                                         Case{"big pdf", "Size/> 100 MB(big) Kind/PDF(pdf)"},
                                         Case{"tiff bmp", "tiff bmp"}, Case{"zipped", "zipped"}));

INSTANTIATE_TEST_SUITE_P(
    Sources, Question,
    testing::Values(Case{"from slack", "From/Slack(from slack)"},
                    Case{"on github", "From/GitHub(on github)"},
                    Case{"via mail", "From/Gmail(via mail)"},
                    Case{"from google drive", "From/Google Drive(from google) drive"},
                    Case{"from gmail from slack", "From/Gmail(from gmail) From/Slack(from slack)"},
                    Case{"slack", "slack"}, Case{"from", ""}, Case{"on", ""}, Case{"via", "via"},
                    Case{"via anna", "via anna"}, Case{"from anna on paper", "anna paper"},
                    Case{"from from gmail", "From/Gmail(from gmail)"},
                    Case{"sent from my mail", "mail"}, Case{"from pdf", "Kind/PDF(pdf)"}));

INSTANTIATE_TEST_SUITE_P(
    Sizes, Question,
    testing::Values(
        Case{"over 2 gb", "Size/> 2 GB(over 2 gb)"}, Case{"over 2gb", "Size/> 2 GB(over 2gb)"},
        Case{"bigger than 2 gb", "Size/> 2 GB(bigger than 2 gb)"},
        Case{"more than 2gb", "Size/> 2 GB(more than 2gb)"},
        Case{"under 500k", "Size/< 500 KB(under 500k)"},
        Case{"> 1.5 mb", "Size/> 1.5 MB(> 1.5 mb)"}, Case{"< 3m", "Size/< 3 MB(< 3m)"},
        Case{">2gb", ">2gb"},
        Case{"less than 5 megs pdf", "Size/< 5 MB(less than 5 megs) Kind/PDF(pdf)"},
        Case{"over 1,5 gb", "over 1 5 gb"}, Case{"over 2", "over 2"}, Case{"over", "over"},
        Case{"over than", "over than"}, Case{"over than 2 gb", "Size/> 2 GB(over than 2 gb)"},
        Case{"over than than 2 gb", "over than than 2 gb"}, Case{"over gb", "over gb"},
        Case{"over two gb", "over two gb"}, Case{"over 2 tb", "over 2 tb"},
        Case{"over 2tb", "over 2tb"}, Case{"over 2 kib", "over 2 kib"}, Case{"2 gb", "2 gb"},
        Case{"2gb", "2gb"}, Case{"over 2k mb", "Size/> 2 KB(over 2k) mb"},
        Case{"over 2x mb", "over 2x mb"}, Case{"over the 2 gb", "over 2 gb"},
        Case{"over pdf", "Kind/PDF(pdf) over"},
        Case{"over over 2 gb", "Size/> 2 GB(over 2 gb) over"},
        Case{"larger than 2 gb", "Size/> 2 GB(larger than 2 gb)"}, Case{"larger", "larger"},
        Case{"over 1 mb under 2 mb", "Size/> 1 MB(over 1 mb) Size/< 2 MB(under 2 mb)"},
        Case{"large", "Size/> 100 MB(large)"}, Case{"heavy", "Size/> 100 MB(heavy)"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, Question,
    testing::Values(
        Case{"over .5 gb", "Size/> 500 MB(over .5 gb)"},
        Case{"over 5. mb", "Size/> 5 MB(over 5. mb)"},
        Case{"over 1e3 mb", "Size/> 1 GB(over 1e3 mb)"}, Case{"over 1e3mb", "over 1e3mb"},
        Case{"over 0 kb", "Size/> Zero KB(over 0 kb)"},
        Case{"over 0.0001k", "Size/> Zero KB(over 0.0001k)"},
        Case{"under -5 mb", "Size/< -5 MB(under -5 mb)"}, Case{"over +5 mb", "over +5 mb"},
        Case{"over inf gb", "over inf gb"}, Case{"over nan gb", "over nan gb"},
        Case{"over infinity gb", "over infinity gb"}, Case{"over 0x10 mb", "over 0x10 mb"},
        Case{"over 1.2.3 mb", "over 1.2.3 mb"}, Case{"over . mb", "over . mb"},
        Case{"over 5\0 mb"s, "over 5\0 mb"s}, Case{"over ٥ mb", "over ٥ mb"},
        Case{"over 2µgb", "over 2µgb"}, Case{"over 1e400 gb", "over 1e400 gb"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, Question,
    testing::Values(
        Case{"today", "When/Today(today)"},
        Case{"today yesterday", "When/Today(today) When/Yesterday(yesterday)"},
        Case{"this week", "When/This week(this week)"},
        Case{"this month", "When/This month(this month)"},
        Case{"last year", "When/Last year(last year)"}, Case{"this", ""}, Case{"last", "last"},
        Case{"this one", "one"}, Case{"last one", "last one"}, Case{"week", "week"},
        Case{"last day", "last day"}, Case{"last weeks", "last weeks"},
        Case{"last march", "When/March(march) last"},
        Case{"last last week", "When/Last week(last week) last"},
        Case{"march 2023", "When/March 2023(march 2023)"}, Case{"march", "When/March(march)"},
        Case{"march 1999", "When/March(march) 1999"},
        Case{"march 2000", "When/March 2000(march 2000)"},
        Case{"march 2100", "When/March 2100(march 2100)"},
        Case{"march 2101", "When/March(march) 2101"},
        Case{"march 2023.", "When/March(march) 2023."},
        Case{"march 20230", "When/March(march) 20230"},
        Case{"march 99999999999999999999", "When/March(march) 99999999999999999999"},
        Case{"march, 2023", "When/March 2023(march 2023)"},
        Case{"2023 march", "When/March(march) 2023"},
        Case{"sept 2022", "When/September 2022(sept 2022)"}, Case{"dece", "When/December(dece)"},
        Case{"may", "When/May(may)"}, Case{"mar", "When/March(mar)"}, Case{"ma", "ma"},
        Case{"marc", "When/March(marc)"}, Case{"septe", "septe"}, Case{"mayo", "mayo"},
        Case{"june july", "When/June(june) When/July(july)"},
        Case{"jun jul", "When/June(jun) When/July(jul)"}, Case{"ja\u0301n", "ja\u0301n"},
        Case{"jan feb", "When/January(jan) When/February(feb)"}));

QueryFilter::Rule ruleOf(std::string_view question) {
    const auto query = QueryParser::parse(question, now);
    EXPECT_EQ(query.filters.size(), 1U) << question;
    return query.filters.empty() ? QueryFilter::Rule{} : query.filters.front().rule;
}

TEST(Kinds, haveTheirExtensions) {
    const std::vector<std::pair<std::string, std::set<std::string>>> table{
        {"pdf", {"pdf"}},
        {"photo", {"png", "jpg", "jpeg", "heic", "gif", "webp", "tiff"}},
        {"video", {"mov", "mp4", "m4v", "avi", "mkv", "webm"}},
        {"music", {"mp3", "wav", "m4a", "aif", "aiff", "flac"}},
        {"document", {"pdf", "doc", "docx", "pages", "rtf", "txt", "md"}},
        {"excel", {"xls", "xlsx", "csv", "numbers"}},
        {"deck", {"key", "ppt", "pptx"}},
        {"archive", {"zip", "rar", "7z", "tar", "gz", "xip"}},
        {"dmg", {"dmg", "pkg", "mpkg", "xip"}},
    };
    for (const auto& [word, extensions] : table)
        EXPECT_EQ(ruleOf(word), QueryFilter::Rule{QueryFilter::Exts{extensions}}) << word;
    EXPECT_EQ(ruleOf("screenshots"), QueryFilter::Rule{QueryFilter::Screenshots{}});
}

TEST(Kinds, areMadeByEachOfTheirWords) {
    std::size_t words = 0;
    for (const auto& kind : QueryParser::kinds()) {
        for (const auto word : kind.words) {
            ++words;
            const auto query = QueryParser::parse(word, now);
            ASSERT_EQ(query.filters.size(), 1U) << word;
            EXPECT_EQ(query.filters[0],
                      (QueryFilter{"Kind", std::string(kind.label), std::string(word), kind.rule}));
            EXPECT_TRUE(query.words.empty()) << word;
        }
    }
    EXPECT_EQ(QueryParser::kinds().size(), 10U);
    EXPECT_EQ(words, 64U);
}

TEST(Sources, areMadeByEachOfTheirWordsAfterEachConnector) {
    for (const auto& source : QueryParser::sources()) {
        for (const auto* connector : {"from", "via", "on"}) {
            const auto phrase = std::string(connector) + " " + std::string(source.word);
            const std::string name(source.name);
            const auto query = QueryParser::parse(phrase, now);
            ASSERT_EQ(query.filters.size(), 1U) << phrase;
            EXPECT_EQ(query.filters[0],
                      (QueryFilter{"From", name, phrase, QueryFilter::Source{name}}));
        }
    }
    EXPECT_EQ(QueryParser::sources().size(), 17U);
}

TEST(Stopwords, areDropped) {
    for (const auto word : QueryParser::stopwords())
        EXPECT_EQ(QueryParser::parse(word, now), ParsedQuery{}) << word;
    EXPECT_EQ(QueryParser::stopwords().size(), 39U);
}

TEST(Comparisons, areMadeByEachOfTheirWords) {
    const QueryFilter::Rule larger = QueryFilter::Larger{3'000'000};
    const QueryFilter::Rule smaller = QueryFilter::Smaller{3'000'000};
    for (const std::string word : {"over", "above", "bigger", "larger", ">", "more"})
        EXPECT_EQ(ruleOf(word + " 3 mb"), larger) << word;
    for (const std::string word : {"under", "below", "smaller", "less", "<"})
        EXPECT_EQ(ruleOf(word + " 3 mb"), smaller) << word;
    for (const std::string word : {"big", "large", "huge", "heavy"})
        EXPECT_EQ(ruleOf(word), QueryFilter::Rule{QueryFilter::Larger{100'000'000}}) << word;
}

TEST(Units, areDecimal) {
    for (const std::string unit : {"kb", "k"})
        EXPECT_EQ(ruleOf("over 7 " + unit), QueryFilter::Rule{QueryFilter::Larger{7'000}});
    for (const std::string unit : {"mb", "m", "meg", "megs"})
        EXPECT_EQ(ruleOf("over 7" + unit), QueryFilter::Rule{QueryFilter::Larger{7'000'000}});
    for (const std::string unit : {"gb", "g", "gig", "gigs"})
        EXPECT_EQ(ruleOf("over 7" + unit), QueryFilter::Rule{QueryFilter::Larger{7'000'000'000}});
}

TEST(Sizes, areTruncatedToWholeBytes) {
    EXPECT_EQ(ruleOf("over 1.2345678 kb"), QueryFilter::Rule{QueryFilter::Larger{1'234}});
    EXPECT_EQ(ruleOf("under -1.2345678 kb"), QueryFilter::Rule{QueryFilter::Smaller{-1'234}});
}

TEST(Sizes, beyond64BitsAreTheLargestAndSmallestThereAre) {
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_EQ(ruleOf("over 99999999999999999999 gb"),
              QueryFilter::Rule{QueryFilter::Larger{Limits::max()}});
    EXPECT_EQ(ruleOf("over 9223372036.854775808 gb"),
              QueryFilter::Rule{QueryFilter::Larger{Limits::max()}});
    EXPECT_EQ(ruleOf("under -1e308 gb"), QueryFilter::Rule{QueryFilter::Smaller{Limits::min()}});
    EXPECT_EQ(outline("over 99999999999999999999 gb"),
              "Size/> 9,223,372.04 TB(over 99999999999999999999 gb)");
}

/// Over and over, for at least so many bytes.
std::string repeated(std::string_view text, std::size_t size) {
    std::string result;
    while (result.size() < size) result += text;
    return result;
}

TEST(Parser, takesQuestionsOfAMegabyte) {
    const std::size_t megabyte = 1'000'000;
    EXPECT_EQ(QueryParser::parse(repeated(" ", megabyte), now), ParsedQuery{});
    EXPECT_EQ(QueryParser::parse(repeated(" ,\"“”", megabyte), now), ParsedQuery{});
    EXPECT_EQ(QueryParser::parse(repeated("“the ", megabyte), now), ParsedQuery{});
    EXPECT_EQ(QueryParser::parse(repeated("\x01\t\n\x7f", megabyte), now).words.size(), 1U);
    EXPECT_EQ(QueryParser::parse(repeated("\xff\xe2\x80", megabyte), now).words.size(), 1U);
    EXPECT_EQ(QueryParser::parse(repeated("חשבונית ", megabyte), now).words.size(), 66'667U);
    EXPECT_EQ(QueryParser::parse(std::string(megabyte, 'x'), now).words.size(), 1U);
    EXPECT_EQ(QueryParser::parse("over " + std::string(megabyte, '9') + " gb", now).words.size(),
              3U);
    const auto query = QueryParser::parse(
        repeated("today pdf over 2 gb from gmail march 2023 last year ж ", megabyte), now);
    EXPECT_EQ(query.filters.size(), query.words.size() * 5 + 1) << "and only one kind";
}

TEST(Parser, takesBytesThatAreNoText) {
    EXPECT_EQ(outline("\xff\xfe pdf"), "Kind/PDF(pdf) \xff\xfe");
    EXPECT_EQ(outline("a\0b pdf"s), "Kind/PDF(pdf) a\0b"s);
    EXPECT_EQ(outline("\xe2\x80 \xe2\x80"), "\xe2\x80 \xe2\x80") << "half a quote mark";
    EXPECT_EQ(outline("\x01\x02\x1b[0m"), "\x01\x02\x1b[0m");
}

TEST(Filters, areIdentifiedByTitleAndLabel) {
    EXPECT_EQ(QueryParser::parse("big", now).filters[0].id(), "Size> 100 MB");
}

}  // namespace
}  // namespace nookwise
