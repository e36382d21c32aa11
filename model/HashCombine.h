// One hash over several fields.
#pragma once

#include <cstddef>
#include <functional>

namespace nookwise {

/// The order of the fields counts.
template <typename... Fields>
std::size_t hashOf(const Fields&... fields) {
    std::size_t combined = 0;
    // The constant is 2^64 divided by the golden ratio; it spreads small differences over all bits.
    ((combined ^=
      std::hash<Fields>{}(fields) + 0x9e3779b97f4a7c15U + (combined << 6) + (combined >> 2)),
     ...);
    return combined;
}

}  // namespace nookwise
