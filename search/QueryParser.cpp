#include "search/QueryParser.h"

#include "platform/Text.h"
#include "search/QueryDates.h"
#include "search/QuerySize.h"
#include "search/QueryWords.h"
#include "search/QuestionTokens.h"

#include <algorithm>
#include <array>

namespace nookwise::QueryParser {
namespace {

constexpr std::array<std::string_view, 3> connectors{"from", "via", "on"};

std::optional<Recognised> recogniseSource(Tokens tokens) {
    if (std::ranges::find(connectors, tokens.front()) == connectors.end()) return std::nullopt;
    const auto name = sourceNamed(nextOf(tokens));
    if (!name) return std::nullopt;
    return recognised(tokens, 2, "From", std::string(*name),
                      QueryFilter::Source{std::string(*name)});
}

/// Everything but kinds, in order of precedence.
std::optional<Recognised> recognise(Tokens tokens, QueryDates& dates) {
    for (const auto recogniser : {recogniseSource, recogniseSizeBound, recogniseBig}) {
        if (auto found = recogniser(tokens)) return found;
    }
    return dates.recognise(tokens);
}

}  // namespace

ParsedQuery parse(std::string_view text, Date now) {
    ParsedQuery query;
    QueryDates dates(now);
    bool hasKind = false;
    const auto lower = lowercased(text);
    const auto all = questionTokens(lower);
    for (Tokens tokens = all; !tokens.empty();) {
        std::size_t consumed = 1;
        if (const auto* const kind = kindOf(tokens.front())) {
            // The first kind decides; words for further ones are dropped.
            if (!hasKind) {
                query.filters.push_back(
                    recognised(tokens, 1, "Kind", std::string(kind->label), kind->rule).filter);
            }
            hasKind = true;
        } else if (auto found = recognise(tokens, dates)) {
            query.filters.push_back(std::move(found->filter));
            consumed = found->consumed;
        } else if (!isStopword(tokens.front())) {
            query.words.emplace_back(tokens.front());
        }
        tokens = tokens.subspan(consumed);
    }
    return query;
}

}  // namespace nookwise::QueryParser
