// Changes to a question as the user typed it.
#pragma once

#include "search/ParsedQuery.h"

#include <string>
#include <string_view>

namespace nookwise {

/// The question without the words that made the filter; what stood around them is left as it is.
/// The question itself when it does not hold them.
std::string removePhrase(std::string_view question, const QueryFilter& filter);

}  // namespace nookwise
