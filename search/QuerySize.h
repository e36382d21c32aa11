// Sizes in a question: "over 2 gb", "under 500k", "big".
#pragma once

#include "search/QueryRecogniser.h"

#include <optional>

namespace nookwise::QueryParser {

/// A comparison word with a size after it. Units are decimal; a number without a unit is no size.
/// Sizes beyond 64 bits become the largest or smallest there is.
std::optional<Recognised> recogniseSizeBound(Tokens tokens);

/// A word for large files.
std::optional<Recognised> recogniseBig(Tokens tokens);

}  // namespace nookwise::QueryParser
