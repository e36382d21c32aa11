// Watching a move or copy that may take long.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <stop_token>

namespace nookwise {

/// The most that can be counted where the sum is more: a few files that are nothing but holes can
/// be longer together than that. `a` is not negative.
inline std::int64_t saturatedSum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    return __builtin_add_overflow(a, b, &sum) ? std::numeric_limits<std::int64_t>::max() : sum;
}

/// Who watches nothing passes an empty one. The functions are called on the thread that copies.
/// What is only renamed tells nothing.
struct CopyWatch {
    /// Told at most once, before the first bytes: how many there are to be copied.
    std::function<void(std::int64_t bytes)> planned;
    /// Told the bytes copied since the last call, every few megabytes. Bytes that are shared
    /// instead of copied count too, and so do holes.
    std::function<void(std::int64_t bytes)> copied;
    /// Ends the operation, inside a file too, as a failure with std::errc::operation_canceled.
    /// Nothing half made is left then; once the copy is published it is no longer looked at.
    std::stop_token stop;
};

}  // namespace nookwise
