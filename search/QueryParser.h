// Turns a question in plain words into filters and words.
#pragma once

#include "platform/Date.h"
#include "search/ParsedQuery.h"

#include <string_view>

namespace nookwise::QueryParser {

/// Never fails. Days, weeks, months and years are those of the user's calendar around `now`.
ParsedQuery parse(std::string_view text, Date now);

}  // namespace nookwise::QueryParser
