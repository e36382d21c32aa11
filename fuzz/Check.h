// What must hold for any input of a fuzzer.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace nookwise {

/// Ends the program unless `holds`, so that the fuzzer keeps the input.
inline void check(bool holds, std::string_view claim) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(claim.size()), claim.data());
    std::abort();
}

}  // namespace nookwise
