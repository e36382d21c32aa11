#include "search/QuestionText.h"

#include "search/CaseAlignment.h"
#include "search/QuestionTokens.h"

#include <algorithm>
#include <optional>

namespace nookwise {
namespace {

/// The first place where the phrase stands as words of its own, whatever separates them.
std::optional<TextRange> findWords(std::string_view question, std::string_view phrase) {
    const auto words = questionTokens(phrase);
    if (words.empty()) return std::nullopt;
    const auto all = questionTokens(question);
    const auto found = std::ranges::search(all, words);
    if (found.empty()) return std::nullopt;
    const auto offset = [&](const char* byte) {
        return static_cast<std::size_t>(byte - question.data());
    };
    const auto last = found.back();
    return TextRange{offset(found.front().data()), offset(last.data() + last.size())};
}

std::optional<TextRange> findPhrase(std::string_view question, std::string_view phrase) {
    // "doc" is looked for beside "docker" before it is looked for inside.
    if (const auto words = findWords(question, phrase)) return words;
    const auto begin = question.find(phrase);
    if (begin == std::string_view::npos) return std::nullopt;
    return TextRange{begin, begin + phrase.size()};
}

}  // namespace

std::string removePhrase(std::string_view question, const QueryFilter& filter) {
    const CaseAlignment alignment(question);
    std::string left(question);
    if (const auto phrase = findPhrase(alignment.lower(), filter.phrase)) {
        const auto range = alignment.inText(*phrase);
        left.erase(range.begin, range.end - range.begin);
    }
    return left;
}

}  // namespace nookwise
