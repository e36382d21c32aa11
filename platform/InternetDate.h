// Dates as ISO 8601 text.
#pragma once

#include "platform/Date.h"

#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// "2026-10-14T09:30:00Z": in UTC, the fraction of a second dropped. A date outside the years 0 to
/// 9999 is written as the nearest second inside them.
std::string internetDate(Date date);

/// Reads what `internetDate` writes, and the same with an offset such as "+02:00" for "Z". None for
/// anything else, fractions of a second included.
std::optional<Date> dateFromInternetDate(std::string_view text);

}  // namespace nookwise
