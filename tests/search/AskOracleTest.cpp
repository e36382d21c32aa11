#include "platform/Text.h"
#include "search/Snippet.h"
#include "tests/search/Corpus.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

// The plain definition: every step as it is described, with no thought of speed.

std::vector<std::string> plainCharacters(std::string_view text) {
    std::vector<std::string> all;
    while (!text.empty()) {
        all.emplace_back(firstCharacters(text, 1));
        text.remove_prefix(all.back().size());
    }
    return all;
}

std::string plainSnippet(std::string text, const std::string& lower, std::size_t position) {
    std::ptrdiff_t offset = 0;
    std::size_t end = 0;
    for (const auto& character : plainCharacters(lower)) {
        end += character.size();
        if (end > position) break;
        ++offset;
    }
    std::replace(text.begin(), text.end(), '\n', ' ');
    const auto all = plainCharacters(text);
    const auto count = static_cast<std::ptrdiff_t>(all.size());
    std::string piece;
    for (auto i = std::max<std::ptrdiff_t>(offset - 30, 0); i < std::min(offset + 60, count); ++i)
        piece += all[static_cast<std::size_t>(i)];
    if (offset - 30 > 0) piece = "…" + piece;
    if (offset + 60 < count) piece += "…";
    return piece;
}

bool plainPasses(const FileItem& file, const QueryFilter::Rule& rule, const Corpus& corpus) {
    if (const auto* exts = std::get_if<QueryFilter::Exts>(&rule))
        return exts->extensions.count(lowercased(file.url.pathExtension())) > 0;
    if (const auto* dates = std::get_if<QueryFilter::Dates>(&rule)) {
        if (!file.added && !file.modified) return false;
        const auto date = file.added ? *file.added : *file.modified;
        return date >= dates->start && date < dates->end;
    }
    if (const auto* larger = std::get_if<QueryFilter::Larger>(&rule))
        return file.size >= larger->bytes;
    if (const auto* smaller = std::get_if<QueryFilter::Smaller>(&rule))
        return file.size <= smaller->bytes;
    if (const auto* source = std::get_if<QueryFilter::Source>(&rule))
        return corpus.sources.contains(file.url) &&
               corpus.sources.at(file.url).view() == source->name;
    const auto name = lowercased(file.url.lastPathComponent());
    for (const auto* beginning : {"screenshot", "screen shot", "cleanshot", "снимок экрана"}) {
        if (name.starts_with(beginning)) return true;
    }
    return false;
}

std::optional<AskResult> plainAnswer(const FileItem& file, const ParsedQuery& query,
                                     const Corpus& corpus) {
    for (const auto& filter : query.filters) {
        if (!plainPasses(file, filter.rule, corpus)) return std::nullopt;
    }
    AskResult result{file, std::nullopt};
    for (const auto& word : query.words) {
        if (lowercased(file.url.lastPathComponent()).find(word) != std::string::npos) continue;
        const auto found = corpus.lowerTexts.find(file.url);
        if (found == corpus.lowerTexts.end()) return std::nullopt;
        const std::string lower(found->second.view());
        const auto position = lower.find(word);
        if (position == std::string::npos) return std::nullopt;
        if (!result.snippet)
            result.snippet =
                plainSnippet(std::string(corpus.texts.at(file.url).view()), lower, position);
    }
    return result;
}

std::vector<AskResult> plainAsk(const ParsedQuery& query, const Corpus& corpus, std::size_t limit) {
    if (query.filters.empty() && query.words.empty()) return {};
    std::vector<AskResult> results;
    for (const auto& file : corpus.files) {
        if (auto answer = plainAnswer(file, query, corpus)) results.push_back(std::move(*answer));
    }
    const auto key = [](const AskResult& result) {
        const auto& file = result.file;
        return file.lastUsed.value_or(file.added.value_or(file.modified.value_or(distantPast)));
    };
    std::stable_sort(results.begin(), results.end(),
                     [&](const auto& a, const auto& b) { return key(a) > key(b); });
    results.resize(std::min(results.size(), limit));
    return results;
}

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
        for (int asked = 0; asked < 10; ++asked) {
            const auto question = randomQuestion(random);
            const auto limit = static_cast<std::size_t>(random.oneIn(2) ? 100 : random.below(5));
            const auto query = QueryParser::parse(question, now);
            const auto results = corpus.ask(query, limit);
            ASSERT_EQ(results, plainAsk(query, corpus, limit)) << round << ": " << question;
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
