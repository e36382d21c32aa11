// Points in time as values.
#pragma once

#include <chrono>
#include <limits>
#include <optional>

namespace nookwise {

using Seconds = std::chrono::duration<double>;

/// Seconds since 1970 as a double: wide enough for any time a file system can hold, in both
/// directions.
using Date = std::chrono::sys_time<Seconds>;

/// Earlier than every real date, later than every real date; used as sort keys for missing dates.
inline constexpr Date distantPast{Seconds{-std::numeric_limits<double>::infinity()}};
inline constexpr Date distantFuture{Seconds{std::numeric_limits<double>::infinity()}};

}  // namespace nookwise
