#include "platform/Text.h"
#include "search/QueryParser.h"
#include "search/QueryWords.h"
#include "search/QuestionTokens.h"
#include "tests/search/Berlin.h"

#include <algorithm>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// Words that mean something, words that do not, and what stands between them.
const std::vector<std::string> pieces{
    "pdf",   "Photos", "screen",  "word",  "from",  "via",   "on",     "gmail", "SLACK",
    "drive", "over",   "bigger",  "than",  "under", ">",     "<",      "2",     "2gb",
    "1.5",   "gb",     "mb",      "k",     "1e9",   "big",   "huge",   "today", "yesterday",
    "this",  "last",   "week",    "month", "year",  "March", "jan",    "sept",  "2023",
    "1999",  "2101",   "invoice", "the",   "my",    "is",    "ÄRZTE",  "İ",     "счёт",
    "\xff",  "\xe2",   "-5",      "inf",   "x2gb",  "ma",    "decemb", "٣",     "e\u0301"};
const std::vector<std::string> separators{" ", "  ", ",", ", ", "\"", "“", "” ", "", "\t"};

std::string randomQuestion(std::mt19937& random) {
    const auto pick = [&](const std::vector<std::string>& from) {
        return from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(random)];
    };
    std::string question;
    const auto length = std::uniform_int_distribution(0, 12)(random);
    for (int i = 0; i < length; ++i) question += pick(pieces) + pick(separators);
    return question;
}

std::string randomBytes(std::mt19937& random) {
    std::string bytes(std::uniform_int_distribution<std::size_t>(0, 60)(random), '\0');
    for (auto& byte : bytes)
        byte = static_cast<char>(std::uniform_int_distribution(0, 255)(random));
    return bytes;
}

/// How many tokens, from the first on, are exactly the phrase's; 0 when they are not.
std::size_t tokensOf(std::span<const std::string_view> tokens, const std::string& phrase) {
    const auto words = questionTokens(phrase);
    if (words.size() > tokens.size()) return 0;
    return std::ranges::equal(words, tokens.first(words.size())) ? words.size() : 0;
}

/// Each token, in order, is part of a filter's phrase, a free word, a stop word or a further kind.
void expectEveryTokenAccountedFor(const std::string& question) {
    SCOPED_TRACE(testing::PrintToString(question));
    const auto query = QueryParser::parse(question, now);
    const auto lower = lowercased(question);
    const auto all = questionTokens(lower);
    std::size_t filter = 0;
    std::size_t word = 0;
    bool hadKind = false;
    for (std::span<const std::string_view> tokens = all; !tokens.empty();) {
        std::size_t consumed = 0;
        if (filter < query.filters.size()) {
            consumed = tokensOf(tokens, query.filters[filter].phrase);
            if (consumed > 0) hadKind |= query.filters[filter++].title == "Kind";
        }
        if (consumed == 0) {
            consumed = 1;
            const bool isWord = word < query.words.size() && query.words[word] == tokens.front();
            const bool isFurtherKind = hadKind && QueryParser::kindOf(tokens.front()) != nullptr;
            if (isWord) ++word;
            ASSERT_TRUE(isWord || isFurtherKind || QueryParser::isStopword(tokens.front()))
                << tokens.front();
        }
        tokens = tokens.subspan(consumed);
    }
    EXPECT_EQ(filter, query.filters.size());
    EXPECT_EQ(word, query.words.size());
    for (const auto& left : query.words) {
        EXPECT_FALSE(QueryParser::isStopword(left)) << left;
        EXPECT_EQ(QueryParser::kindOf(left), nullptr) << left;
    }
}

TEST(Parser, accountsForEveryTokenOfAnyQuestion) {
    std::mt19937 random(1);
    for (int round = 0; round < 20'000; ++round) {
        expectEveryTokenAccountedFor(randomQuestion(random));
        if (testing::Test::HasFailure()) return;
    }
}

TEST(Parser, accountsForEveryTokenOfAnyBytes) {
    std::mt19937 random(2);
    for (int round = 0; round < 20'000; ++round) {
        expectEveryTokenAccountedFor(randomBytes(random));
        if (testing::Test::HasFailure()) return;
    }
}

}  // namespace
}  // namespace nookwise
