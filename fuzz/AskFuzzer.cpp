// Answers are what the plain definition says they are, however the corpus came about, and what they
// show and mark is never cut inside a character. The input is the question, then marks, a name and
// a text for each change to a file.
#include "fuzz/Check.h"
#include "fuzz/Fields.h"
#include "platform/Text.h"
#include "search/Marks.h"
#include "tests/search/Corpus.h"
#include "tests/search/PlainAnswers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {
namespace {

/// As many days before now as there are of the mark; none without any.
std::optional<Date> dateOf(std::string_view marks, char mark) {
    const auto days = std::ranges::count(marks, mark);
    if (days == 0) return std::nullopt;
    constexpr double secondsOfDay = 86'400;
    return now - Seconds(secondsOfDay * static_cast<double>(days));
}

/// Files that come, change and go, and the corpus that is told of it.
class ChangingCorpus {
  public:
    void change(std::string_view marks, std::string_view name, std::string_view text) {
        const auto has = [&](char mark) { return marks.find(mark) != std::string_view::npos; };
        const FileUrl url("/home/" + std::string(name));
        std::erase_if(values_.files, [&](const FileItem& file) { return file.url == url; });
        if (!has('x')) {
            const auto place = has('f') ? values_.files.begin() : values_.files.end();
            values_.files.insert(place, itemOf(url, marks));
        }
        made_.filesChanged();
        if (!has('n')) {
            values_.texts[url] = SharedBytes(text);
            values_.lowerTexts[url] = SharedBytes(lowercased(text));
        }
        if (has('g') || has('s')) values_.sources[url] = SharedBytes(has('g') ? "Gmail" : "Slack");
        tell(url, has('w'));
    }

    const Corpus& values() const { return values_; }
    const SearchCorpus& made() const { return made_; }

  private:
    static FileItem itemOf(const FileUrl& url, std::string_view marks) {
        constexpr std::int64_t size = 60'000'000;
        return {.url = url,
                .size = size * std::ranges::count(marks, 'l'),
                .modified = dateOf(marks, 'm'),
                .added = dateOf(marks, 'a'),
                .lastUsed = dateOf(marks, 'u')};
    }

    void tell(const FileUrl& url, bool asAWhole) {
        if (asAWhole) {
            made_.lowerTextsChanged();
            made_.sourcesChanged();
        } else {
            made_.lowerTextsChanged({&url, 1});
            made_.sourcesChanged({&url, 1});
        }
    }

    Corpus values_;
    SearchCorpus made_ = values_.made();
};

/// Where the characters of a text begin and where the last one ends.
std::set<std::size_t> bordersOf(std::string_view text) {
    std::set<std::size_t> borders{0};
    std::size_t end = 0;
    for (const auto& character : plainCharacters(text)) borders.insert(end += character.size());
    return borders;
}

bool isMarked(const std::vector<TextRange>& marks, std::size_t byte) {
    return std::ranges::any_of(
        marks, [&](const TextRange& mark) { return mark.begin <= byte && byte < mark.end; });
}

/// Byte by byte, where bytes are characters.
void checkPlainMarks(const std::string& text, const std::vector<std::string>& words,
                     const std::vector<TextRange>& marks) {
    if (std::ranges::any_of(text, [](char c) { return c <= '\r'; })) return;
    const auto lower = lowercased(text);
    std::vector<bool> expected(text.size());
    for (const auto& word : words) {
        for (std::size_t begin = 0; begin + word.size() <= lower.size(); ++begin) {
            if (lower.compare(begin, word.size(), word) != 0) continue;
            for (std::size_t i = 0; i < word.size(); ++i) expected[begin + i] = true;
        }
    }
    for (std::size_t byte = 0; byte < text.size(); ++byte)
        check(expected[byte] == isMarked(marks, byte), "exactly the words are marked");
}

void checkMarks(const std::string& text, const std::vector<std::string>& words) {
    const auto marks = matchRanges(text, words);
    const auto borders = bordersOf(text);
    std::size_t end = 0;
    for (const auto& mark : marks) {
        check(mark.begin < mark.end && mark.end <= text.size(), "a mark lies in its text");
        check(&mark == marks.data() || mark.begin > end, "marks do not touch");
        check(borders.contains(mark.begin) && borders.contains(mark.end),
              "a mark holds whole characters");
        end = mark.end;
    }
    checkPlainMarks(text, words, marks);
}

void checkSnippets(const std::vector<AskResult>& results, const ParsedQuery& query,
                   const Corpus& corpus) {
    constexpr std::size_t longest = 92;
    for (const auto& result : results) {
        checkMarks(std::string(result.file.url.lastPathComponent()), query.words);
        if (!result.snippet) continue;
        check(characterCount(*result.snippet) <= longest, "a snippet is short");
        const auto text = corpus.texts.at(result.file.url).view();
        check(!isWellFormed(text) || isWellFormed(*result.snippet), "no character is broken");
        checkMarks(*result.snippet, query.words);
        checkMarks(std::string(text), query.words);
    }
}

void checkInput(Fields fields) {
    const auto query = QueryParser::parse(fields.next(), now);
    ChangingCorpus corpus;
    while (!fields.isAtEnd()) {
        const auto marks = fields.next();
        const auto name = fields.next();
        const auto text = fields.next();
        if (isFileName(name)) corpus.change(marks, name, text);
    }
    for (const std::size_t limit : {std::size_t{2}, std::size_t{1'000}}) {
        const auto results = ask(query, corpus.made(), limit);
        check(results == plainAsk(query, corpus.values(), limit),
              "answers are what they should be");
        check(results == corpus.values().ask(query, limit), "answers come from the values alone");
        checkSnippets(results, query, corpus.values());
    }
}

}  // namespace
}  // namespace nookwise

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    nookwise::checkInput({bytes, size});
    return 0;
}
