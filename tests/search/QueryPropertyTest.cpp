#include "search/QueryParser.h"
#include "search/QuestionText.h"
#include "tests/search/Berlin.h"
#include "tests/search/TokenAccount.h"

#include <optional>
#include <random>
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

void expectEveryTokenAccountedFor(const std::string& question) {
    EXPECT_EQ(unaccountedFor(question, QueryParser::parse(question, now)), std::nullopt)
        << testing::PrintToString(question);
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

TEST(Parser, takesCaseAndSeparatorsForNothing) {
    std::mt19937 random(3);
    for (int round = 0; round < 5'000; ++round) {
        const auto question = randomQuestion(random);
        const auto query = QueryParser::parse(question, now);
        const auto lower = lowercased(question);
        std::string spaced;
        for (const auto token : questionTokens(lower)) spaced.append(token) += " , ";
        ASSERT_EQ(QueryParser::parse(lower, now), query) << testing::PrintToString(question);
        ASSERT_EQ(QueryParser::parse(spaced, now), query) << testing::PrintToString(question);
    }
}

TEST(RemovePhrase, shortensAnyQuestionUntilNoFilterIsLeft) {
    std::mt19937 random(4);
    std::size_t presses = 0;
    for (int round = 0; round < 3'000; ++round) {
        auto question = randomQuestion(random);
        for (auto query = QueryParser::parse(question, now); !query.filters.empty();
             query = QueryParser::parse(question, now)) {
            for (const auto& filter : query.filters)
                ASSERT_LT(removePhrase(question, filter).size(), question.size())
                    << testing::PrintToString(question) << filter.phrase;
            question = removePhrase(question, query.filters.back());
            ++presses;
        }
    }
    EXPECT_GT(presses, 2'000U);
}

}  // namespace
}  // namespace nookwise
