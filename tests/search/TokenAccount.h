// Says what became of each word of a question.
#pragma once

#include "platform/Text.h"
#include "search/ParsedQuery.h"
#include "search/QueryWords.h"
#include "search/QuestionTokens.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace nookwise {

/// How many tokens, from the first on, are exactly the phrase's; 0 when they are not.
inline std::size_t tokensOf(std::span<const std::string_view> tokens, std::string_view phrase) {
    const auto words = questionTokens(phrase);
    if (words.size() > tokens.size()) return 0;
    return std::ranges::equal(words, tokens.first(words.size())) ? words.size() : 0;
}

/// Each token, in order, must be part of a filter's phrase, a free word, a stop word or a further
/// kind, and nothing else may be in the query. None where it is so.
inline std::optional<std::string> unaccountedFor(std::string_view question,
                                                 const ParsedQuery& query) {
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
            const auto token = tokens.front();
            const bool isWord = word < query.words.size() && query.words[word] == token;
            const bool isFurtherKind = hadKind && QueryParser::kindOf(token) != nullptr;
            if (isWord) ++word;
            if (!isWord && !isFurtherKind && !QueryParser::isStopword(token))
                return "the token " + std::string(token) + " was lost";
        }
        tokens = tokens.subspan(consumed);
    }
    if (filter != query.filters.size()) return "a filter has no tokens";
    if (word != query.words.size()) return "a word is no token";
    for (const auto& left : query.words) {
        if (QueryParser::isStopword(left)) return left + " is a stop word";
        if (QueryParser::kindOf(left) != nullptr) return left + " is a kind";
    }
    return std::nullopt;
}

}  // namespace nookwise
