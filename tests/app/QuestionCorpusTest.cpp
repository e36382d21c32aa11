#include "app/QuestionCorpus.h"
#include "search/Ask.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class QuestionCorpusTest : public testing::Test {
  protected:
    QuestionCorpusTest() {
        files.set({{.url = a}, {.url = b}});
        write(texts, a, "Kite");
        write(lowerTexts, a, "kite");
        write(sources, a, "Gmail");
    }

    static auto putting(const FileUrl& url, std::string_view value) {
        return [url, value](TextsByUrl& known) {
            known[url] = SharedBytes(value);
            return true;
        };
    }
    /// As who says of which file the text is.
    void write(Observable<TextsByUrl>& field, const FileUrl& url, std::string_view value) {
        corpus.mutate(field, std::vector{url}, putting(url, value));
    }

    std::vector<AskResult> asked(const SearchCorpus& from, const ParsedQuery& query) const {
        return ask(query, from, 10);
    }
    void expectAnswersOfAFreshOne() const {
        const SearchCorpus fresh({files.get(), texts.get(), lowerTexts.get(), sources.get()});
        const auto from = [](const char* source) {
            return ParsedQuery{{{"From", source, source, QueryFilter::Source{source}}}, {}};
        };
        for (const auto& query : {ParsedQuery{{}, {"kite"}}, ParsedQuery{{}, {"blue"}},
                                  ParsedQuery{{}, {"pdf"}}, from("Gmail"), from("Slack")})
            EXPECT_EQ(asked(corpus.corpus(), query), asked(fresh, query));
    }

    const FileUrl a{"/h/a.pdf"};
    const FileUrl b{"/h/b.pdf"};
    Observable<std::vector<FileItem>> files;
    Observable<TextsByUrl> texts;
    Observable<TextsByUrl> lowerTexts;
    Observable<TextsByUrl> sources;
    QuestionCorpus corpus{{files, texts, lowerTexts, sources}};
};

TEST_F(QuestionCorpusTest, followsWhateverAnObserverOfOneFieldWritesToAnother) {
    const std::vector<Observable<TextsByUrl>*> fields{&texts, &lowerTexts, &sources};
    for (auto* observed : fields) {
        for (auto* rewritten : fields) {
            if (observed == rewritten) continue;
            for (const auto* value : {"blue", "Slack", "kite"}) {
                const auto watch = observed->observe([&] { rewritten->mutate(putting(b, value)); });
                write(*observed, a, value);
                expectAnswersOfAFreshOne();
            }
        }
    }
}

TEST_F(QuestionCorpusTest, followsAnObserverThatWritesTheFieldAgain) {
    bool isWritten = false;
    const auto watch = lowerTexts.observe([&] {
        if (!std::exchange(isWritten, true)) lowerTexts.mutate(putting(b, "blue kite"));
    });
    write(lowerTexts, a, "blue");
    expectAnswersOfAFreshOne();
}

TEST_F(QuestionCorpusTest, followsAnObserverThatReplacesTheFiles) {
    const auto watch = texts.observe([&] { files.set({{.url = b}, {.url = a}}); });
    write(texts, a, "blue");
    write(lowerTexts, a, "blue");
    expectAnswersOfAFreshOne();
}

TEST_F(QuestionCorpusTest, looksAtEverythingAfterAChangeThatFailed) {
    const auto fail = [](TextsByUrl&) -> bool { throw std::runtime_error("no memory"); };
    for (auto* field : {&texts, &lowerTexts, &sources}) {
        EXPECT_THROW(corpus.mutate(*field, std::vector{a}, fail), std::runtime_error);
        field->mutate(putting(b, "kite"));
        expectAnswersOfAFreshOne();
    }
}

TEST_F(QuestionCorpusTest, looksAtEverythingAfterAChangeThatChangedNothing) {
    const auto nothing = [](TextsByUrl&) { return false; };
    for (auto* field : {&texts, &lowerTexts, &sources}) {
        corpus.mutate(*field, std::vector{a}, nothing);
        field->mutate(putting(b, "blue"));
        expectAnswersOfAFreshOne();
    }
}

}  // namespace
}  // namespace nookwise
