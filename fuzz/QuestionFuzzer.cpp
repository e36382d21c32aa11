// Any bytes are a question, and every word of it ends up somewhere.
#include "fuzz/Check.h"
#include "platform/Text.h"
#include "search/QueryParser.h"
#include "search/QuestionText.h"
#include "tests/search/Berlin.h"
#include "tests/search/TokenAccount.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {
namespace {

std::string joined(const std::vector<std::string_view>& tokens) {
    std::string text;
    for (const auto token : tokens) text.append(token) += ' ';
    return text;
}

void checkFilters(const ParsedQuery& query) {
    check(std::ranges::count(query.filters, "Kind", &QueryFilter::title) <= 1, "one kind");
    for (const auto& filter : query.filters) {
        check(!filter.phrase.empty(), "a filter has words");
        check(!filter.label.empty(), "a filter has a label");
        if (const auto* dates = std::get_if<QueryFilter::Dates>(&filter.rule))
            check(dates->start < dates->end, "an interval has a length");
    }
}

/// As many presses as there are filters, and more where removing one makes another.
void checkRemoval(std::string question, ParsedQuery query) {
    constexpr std::size_t longest = 400;
    if (question.size() > longest) return;
    while (!query.filters.empty()) {
        for (const auto& filter : query.filters) {
            const auto left = removePhrase(question, filter);
            check(left.size() < question.size(), "a filter's words are removed");
            const auto before = std::ranges::mismatch(left, question).in1 - left.begin();
            const auto behind = left.size() - static_cast<std::size_t>(before);
            check(question.ends_with(std::string_view(left).substr(left.size() - behind)),
                  "the rest is left as it is");
            check(!isWellFormed(question) || isWellFormed(left), "no character is broken");
        }
        question = removePhrase(question, query.filters.front());
        query = QueryParser::parse(question, now);
    }
}

void checkQuestion(std::string_view question) {
    const auto query = QueryParser::parse(question, now);
    const auto complaint = unaccountedFor(question, query);
    check(!complaint, complaint.value_or(""));
    checkFilters(query);
    check(QueryParser::parse(question, now) == query, "equal questions mean the same");
    const auto lower = lowercased(question);
    check(QueryParser::parse(lower, now) == query, "case means nothing");
    check(QueryParser::parse(joined(questionTokens(lower)), now) == query,
          "what separates words means nothing");
    checkRemoval(std::string(question), query);
}

}  // namespace
}  // namespace nookwise

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    nookwise::checkQuestion({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
