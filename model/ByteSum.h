// Arithmetic on byte counts that never wraps.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace nookwise {

/// A sum of file sizes beyond 63 bits cannot come from real files: it is a bug, and going on with a
/// wrapped figure would lie to the user about what comes back.
[[noreturn]] inline void stopOnByteOverflow() {
    std::fputs("nookwise: a sum of byte counts overflowed\n", stderr);
    std::abort();
}

inline std::int64_t byteSum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) stopOnByteOverflow();
    return sum;
}

inline std::int64_t byteProduct(std::int64_t size, std::int64_t count) {
    std::int64_t product = 0;
    if (__builtin_mul_overflow(size, count, &product)) stopOnByteOverflow();
    return product;
}

}  // namespace nookwise
