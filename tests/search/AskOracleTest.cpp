#include "platform/Text.h"
#include "search/Snippet.h"
#include "tests/search/Corpus.h"
#include "tests/search/PlainAnswers.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class Random {
  public:
    explicit Random(unsigned seed) : engine_(seed) {}

    int below(int end) { return std::uniform_int_distribution(0, end - 1)(engine_); }
    bool oneIn(int count) { return below(count) == 0; }
    const char* of(const std::vector<const char*>& all) {
        return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
    }

  private:
    std::mt19937 engine_;
};

const std::vector<const char*> texts{"kite",   "Kite",  "KITES", "blue",    "Ärzte",
                                     "ärzte",  "İ",     "ΟΔΟΣ",  "e\u0301", "👩‍👩‍👧",
                                     "🇩🇪🇫🇷",   "счёт",  "СЧЁТ",  "漢字",    "한국",
                                     "\n",     "\r\n",  " ",     "  ",      "-",
                                     "a",      "ß",     "\xff",  "\t",      "क्ष",
                                     "x",      "ﬁ",     "K",     "1.5",     "pdf",
                                     "\u0301", "\u200d"};
const std::vector<const char*> extensions{"pdf", "PDF", "png", "Jpg", "zip", "mov", "", "dmg"};
const std::vector<const char*> questions{
    "kite",       "KITE",       "blue",      "ärzte",       "ÄRZTE",      "i",         "οδος",
    "\u0301",     "👩",          "счёт",      "漢",          "한",         "a",         "x",
    "-",          "\xff",       "1.5",       "e",           "ß",          "pdfs",      "images",
    "big",        "zip",        "today",     "march",       "from gmail", "via slack", "over 1 kb",
    "under 1 mb", "last month", "this year", "screenshots", "the",        "k",         "i\u0307",
    "क",          "fi"};

std::string randomText(Random& random, int longest) {
    std::string text;
    for (auto left = random.below(longest + 1); left > 0; --left) text += random.of(texts);
    return text;
}

std::optional<Date> randomDate(Random& random) {
    if (random.oneIn(3)) return std::nullopt;
    return now - Seconds(86'400.0 * random.below(120));
}

Corpus randomCorpus(Random& random) {
    Corpus corpus;
    for (auto left = random.below(12); left > 0; --left) {
        auto name = (random.oneIn(4) ? "Screenshot " : "") + randomText(random, 3);
        std::erase(name, '/');
        const auto path = "/h/" + std::to_string(left) + name + "." + random.of(extensions);
        auto& file = random.oneIn(3)
                         ? corpus.add(path)
                         : corpus.addWithText(path, randomText(random, random.oneIn(3) ? 300 : 40));
        file.size = random.below(3) * 60'000'000 + random.below(2'000);
        file.modified = randomDate(random);
        file.added = randomDate(random);
        file.lastUsed = randomDate(random);
        if (random.oneIn(2))
            corpus.sources[file.url] = SharedBytes(random.oneIn(2) ? "Gmail" : "Slack");
    }
    return corpus;
}

std::string randomQuestion(Random& random) {
    std::string question;
    for (auto left = random.below(4); left > 0; --left)
        question += std::string(random.of(questions)) + " ";
    return question;
}

TEST(Ask, agreesWithItsPlainDefinition) {
    Random random(11);
    std::size_t answers = 0;
    std::size_t snippets = 0;
    for (int round = 0; round < 1'000; ++round) {
        const auto corpus = randomCorpus(random);
        const auto made = corpus.made();
        for (int asked = 0; asked < 10; ++asked) {
            const auto question = randomQuestion(random);
            const auto limit = static_cast<std::size_t>(random.oneIn(2) ? 100 : random.below(5));
            const auto query = QueryParser::parse(question, now);
            const auto results = corpus.ask(query, limit);
            const auto plain = plainAsk(query, corpus, limit);
            ASSERT_EQ(results, plain) << round << ": " << question;
            if (plain.empty() && query.filters.empty() && query.words.empty()) continue;
            const auto reach = shortReaches[static_cast<std::size_t>(asked) % shortReaches.size()];
            ASSERT_TRUE(isAnsweredBy(query, made, limit, reach, plain)) << question;
            answers += results.size();
            snippets += static_cast<std::size_t>(std::ranges::count_if(
                results, [](const AskResult& result) { return result.snippet.has_value(); }));
        }
    }
    // The comparison was about something.
    EXPECT_GT(answers, 5'000U);
    EXPECT_GT(snippets, 2'000U);
}

TEST(Snippet, agreesWithItsPlainDefinition) {
    Random random(12);
    for (int round = 0; round < 3'000; ++round) {
        const auto text = randomText(random, 200);
        const auto lower = lowercased(text);
        const auto word = lowercased(random.of(texts));
        const auto position = lower.find(word);
        if (position == std::string::npos) continue;
        ASSERT_EQ(snippet(text, lower, position), plainSnippet(text, lower, position))
            << testing::PrintToString(text) << " " << position;
    }
}

}  // namespace
}  // namespace nookwise
