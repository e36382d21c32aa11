#include "search/QueryRecogniser.h"

#include <utility>

namespace nookwise::QueryParser {

Recognised recognised(Tokens tokens, std::size_t consumed, std::string_view title,
                      std::string label, QueryFilter::Rule rule) {
    std::string phrase;
    for (const auto token : tokens.first(consumed)) {
        if (!phrase.empty()) phrase += ' ';
        phrase += token;
    }
    return {{std::string(title), std::move(label), std::move(phrase), std::move(rule)}, consumed};
}

}  // namespace nookwise::QueryParser
