#include "tests/search/Corpus.h"
#include "tests/search/PlainAnswers.h"

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// Values that change at random, and a corpus that is told of each change.
class ChangingCorpus {
  public:
    explicit ChangingCorpus(unsigned seed) : random_(seed) {}

    void change() {
        switch (below(9)) {
            case 0:
                return replaceFiles();
            case 1:
                return removeFiles();
            case 2:
                return relocateFiles();
            case 3:
                return changeDates();
            case 4:
                return replaceTexts();
            default:
                return addTexts();
        }
    }

    void expectPlainAnswers() {
        if (below(3) == 0) {
            corpus_.sortInMemory();
            expectOrder();
        }
        for (const auto* question :
             {"kite", "k", "blue kite", "ärz", "pdfs", "from gmail", "big", "kite from gmail",
              "screenshots", "images blue", "today", "q", "\u0307"}) {
            const auto query = QueryParser::parse(question, now);
            for (const auto limit : {std::size_t{3}, std::size_t{10'000}}) {
                const auto plain = plainAsk(query, values_, limit);
                ASSERT_EQ(ask(query, corpus_, limit), plain) << question;
                ASSERT_EQ(values_.ask(query, limit), plain) << question;
                for (const auto reach : shortReaches)
                    ASSERT_TRUE(isAnsweredBy(query, corpus_, limit, reach, plain)) << question;
            }
        }
    }

  private:
    void expectOrder() const {
        std::size_t texts = 0;
        for (const auto& row : corpus_.rows()) texts += !row.lowerText.view().empty();
        ASSERT_EQ(corpus_.texts().size(), texts);
        ASSERT_TRUE(std::ranges::is_sorted(corpus_.texts(), {}, &SearchCorpus::TextPlace::address));
        for (const auto& place : corpus_.texts())
            ASSERT_EQ(corpus_.rows()[place.row].lowerText.view().data(), place.begin);
    }

    std::size_t below(std::size_t end) { return random_() % end; }

    FileUrl url() {
        static constexpr std::array names{"kite.pdf", "Blue.PNG", "Screenshot 1.png", "ÄRZTE.zip",
                                          "İ.mov",    "notes",    "KITE blue.jpg"};
        return FileUrl("/h/" + std::to_string(below(20)) + "/" + names[below(names.size())]);
    }

    std::string text() {
        static constexpr std::array pieces{"Kite ", "blue\n", "ärzte ", "İ", "x", "KITE", "--", ""};
        std::string all;
        for (auto left = below(30); left > 0; --left) all += pieces[below(pieces.size())];
        return all;
    }

    FileItem file() {
        FileItem made{.url = url(), .size = static_cast<std::int64_t>(below(2) * 200'000'000)};
        const auto date = [&]() -> std::optional<Date> {
            if (below(3) == 0) return std::nullopt;
            return now - Seconds(86'400.0 * static_cast<double>(below(4)));
        };
        made.added = date();
        made.modified = date();
        made.lastUsed = date();
        return made;
    }

    /// Some of the known ones stay, in their order; the same file may stand twice.
    void replaceFiles() {
        std::erase_if(values_.files, [&](const FileItem&) { return below(3) == 0; });
        for (auto left = below(60); left > 0; --left) {
            const auto place = below(values_.files.size() + 1);
            values_.files.insert(values_.files.begin() + static_cast<std::ptrdiff_t>(place),
                                 file());
        }
        if (below(4) == 0) std::ranges::shuffle(values_.files, random_);
        corpus_.filesChanged();
    }

    void removeFiles() {
        std::vector<FileUrl> gone;
        std::erase_if(values_.files, [&](const FileItem& file) {
            if (below(5) > 0) return false;
            gone.push_back(file.url);
            return true;
        });
        corpus_.filesChanged();
        for (const auto& url : gone) {
            values_.texts.erase(url);
            values_.lowerTexts.erase(url);
            values_.sources.erase(url);
        }
        tell(gone);
    }

    void relocateFiles() {
        std::vector<FileUrl> ends;
        std::vector<std::pair<FileUrl, FileUrl>> moved;
        for (auto& file : values_.files) {
            if (below(5) > 0) continue;
            moved.emplace_back(file.url, url());
            file.url = moved.back().second;
        }
        corpus_.filesChanged();
        for (const auto& [from, to] : moved) {
            ends.insert(ends.end(), {from, to});
            for (auto* map : {&values_.texts, &values_.lowerTexts, &values_.sources}) {
                if (auto node = map->extract(from)) map->insert_or_assign(to, node.mapped());
            }
        }
        tell(ends);
    }

    void changeDates() {
        for (auto& file : values_.files) {
            if (below(4) == 0) file.lastUsed = now - Seconds(static_cast<double>(below(5)));
        }
        corpus_.filesChanged();
    }

    void replaceTexts() {
        values_.texts.clear();
        values_.lowerTexts.clear();
        values_.sources.clear();
        for (auto left = below(50); left > 0; --left) addText(url());
        corpus_.lowerTextsChanged();
        corpus_.sourcesChanged();
    }

    void addTexts() {
        std::vector<FileUrl> urls;
        for (auto left = below(24); left > 0; --left) {
            urls.push_back(url());
            addText(urls.back());
        }
        tell(urls);
    }

    void addText(const FileUrl& url) {
        const auto made = text();
        values_.texts[url] = SharedBytes(made);
        values_.lowerTexts[url] = SharedBytes::inSequence(lowercased(made));
        if (below(2) == 0) values_.sources[url] = SharedBytes(below(2) == 0 ? "Gmail" : "Slack");
    }

    void tell(const std::vector<FileUrl>& urls) {
        corpus_.lowerTextsChanged(urls);
        corpus_.sourcesChanged(urls);
    }

    std::mt19937 random_;
    Corpus values_;
    SearchCorpus corpus_ = values_.made();
};

TEST(SearchCorpus, answersAsOneMadeAnewAfterEveryChange) {
    for (unsigned seed = 0; seed < 8; ++seed) {
        ChangingCorpus changing(seed);
        for (int round = 0; round < 20; ++round) {
            changing.change();
            changing.expectPlainAnswers();
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

/// More files than are looked at in the order of answers, one in `every` of which says "kite".
Corpus manyFiles(int count, int every) {
    Corpus corpus;
    for (int i = 0; i < count; ++i) {
        const auto path = "/h/" + std::to_string(i) + (i % 7 == 0 ? " kite.pdf" : ".png");
        const auto* text = i % every == 0 ? "a blue Kite" : i % 3 == 0 ? "nothing" : "";
        corpus.addWithText(path, text).added = now - Seconds(static_cast<double>(i * 7919 % count));
    }
    return corpus;
}

TEST(SearchCorpus, ofManyFilesAnswersPlainly) {
    for (const auto every : {1, 50, 5'000}) {
        const auto values = manyFiles(12'000, every);
        const auto corpus = values.made();
        for (const auto* question : {"kite", "blue", "blue kite", "kite pdfs", "images blue", "qqq",
                                     "a b c d e", "a b l u e k i t", "h o t n g i"}) {
            const auto query = QueryParser::parse(question, now);
            for (const auto limit : {std::size_t{1}, std::size_t{501}, std::size_t{100'000}})
                ASSERT_EQ(ask(query, corpus, limit), plainAsk(query, values, limit)) << question;
        }
    }
}

TEST(SearchCorpus, ofManyFilesAnswersPlainlyHoweverItIsRead) {
    const auto values = manyFiles(3'000, 50);
    const auto corpus = values.made();
    for (const auto* question : {"kite", "blue kite", "kite pdfs", "a b l u e k i t", "qqq"}) {
        const auto query = QueryParser::parse(question, now);
        for (const auto limit : {std::size_t{1}, std::size_t{70}, std::size_t{100'000}}) {
            const auto plain = plainAsk(query, values, limit);
            for (const auto reach : shortReaches)
                ASSERT_TRUE(isAnsweredBy(query, corpus, limit, reach, plain)) << question;
        }
    }
}

TEST(SearchCorpus, givesTheFilesOfTheAnswersAlone) {
    const auto values = manyFiles(300, 5);
    const auto corpus = values.made();
    const auto query = QueryParser::parse("kite", now);
    std::vector<FileItem> files;
    for (const auto& result : ask(query, corpus, 20)) files.push_back(result.file);
    EXPECT_EQ(files.size(), 20U);
    EXPECT_EQ(answers(query, corpus, 20), files);
    EXPECT_TRUE(answers({}, corpus, 20).empty());
}

/// A question pasted from somewhere, a megabyte long.
std::string pasted(const std::function<std::string(int)>& piece) {
    std::string question;
    for (int i = 0; question.size() < 1'000'000; ++i) question += piece(i);
    return question;
}

TEST(SearchCorpus, answersAQuestionFullOfFiltersAsOneOfAFew) {
    const auto values = manyFiles(20'000, 50);
    const auto corpus = values.made();
    const auto expectSame = [&](const std::string& question, const char* few) {
        EXPECT_EQ(ask(QueryParser::parse(question, now), corpus, 100'000),
                  ask(QueryParser::parse(few, now), corpus, 100'000))
            << few;
    };
    expectSame(pasted([](int) { return "under 9 gb pdfs "; }), "under 9 gb pdfs");
    expectSame(pasted([](int i) { return "under " + std::to_string(i % 9'000 + 9) + " gb "; }),
               "under 9 gb");
    expectSame(pasted([](int i) { return i % 2 == 0 ? "this year " : "this month pdfs "; }),
               "this month pdfs");
    expectSame(pasted([](int i) { return i % 2 == 0 ? "pdfs " : "images "; }), "pdfs images");
}

TEST(SearchCorpus, passesNoFileThatOneOfSeveralLikeFiltersKeepsOut) {
    Corpus values;
    for (int i = 0; i < 60; ++i) {
        auto& file = values.add("/h/" + std::to_string(i) + ".pdf");
        file.size = i * 1'000'000;
        file.added = now - Seconds{86'400.0 * i};
        values.sources[file.url] = SharedBytes(i % 2 == 0 ? "Gmail" : "Slack");
    }
    const auto corpus = values.made();
    for (const auto* question :
         {"over 3 mb over 7 mb", "over 7 mb over 3 mb", "under 3 mb under 7 mb over 1 mb",
          "this month today", "today this month", "this month last month", "from gmail from slack",
          "from gmail from gmail"}) {
        const auto query = QueryParser::parse(question, now);
        ASSERT_GE(query.filters.size(), 2U) << question;
        EXPECT_EQ(ask(query, corpus, 100), plainAsk(query, values, 100)) << question;
    }
}

TEST(SearchCorpus, lowercasesAnExtensionByItself) {
    // In the whole name the last letter would end a word.
    Corpus corpus;
    corpus.add("/h/Α.Σ");
    const ParsedQuery query{{{"", "", "", QueryFilter::Exts{{lowercased("Σ")}}}}, {}};
    EXPECT_EQ(corpus.ask(query).size(), 1U);
}

TEST(SearchCorpus, findsNoWordAcrossTwoNames) {
    Corpus corpus;
    corpus.add("/h/xki").added = now;
    corpus.add("/h/te").added = now - Seconds{1};
    corpus.add("/h/kite").added = now - Seconds{2};
    EXPECT_EQ(corpus.paths("kite"), Paths{"/h/kite"});
}

TEST(SearchCorpus, forgetsExtensionsThatNoFileHas) {
    Corpus values;
    values.addWithText("/h/a.pdf", "kite");
    auto corpus = values.made();
    for (int i = 0; i < 5'000; ++i) {
        values.files.resize(1);
        values.add("/h/b." + std::to_string(i));
        corpus.filesChanged();
    }
    EXPECT_LT(corpus.extensions().texts().size(), 2'000U);
    EXPECT_EQ(ask(QueryParser::parse("pdf kite", now), corpus, 10).size(), 1U);
}

}  // namespace
}  // namespace nookwise
