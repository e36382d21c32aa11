// What the recognisers of a question's parts hand back.
#pragma once

#include "search/ParsedQuery.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace nookwise::QueryParser {

/// A question's words from the one in question on.
using Tokens = std::span<const std::string_view>;

struct Recognised {
    QueryFilter filter;
    /// How many words made it.
    std::size_t consumed;
};

/// The word after the first; empty when there is none.
inline std::string_view nextOf(Tokens tokens) {
    return tokens.size() > 1 ? tokens[1] : std::string_view{};
}

/// A filter made by the first `consumed` words.
Recognised recognised(Tokens tokens, std::size_t consumed, std::string_view title,
                      std::string label, QueryFilter::Rule rule);

}  // namespace nookwise::QueryParser
