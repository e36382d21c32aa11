#include "platform/linux/WatchedCopy.h"

#include <cerrno>
#include <utility>

namespace nookwise {
namespace {

/// Copied in the time of a few frames from one fast disk to another.
constexpr std::int64_t piece = 4LL << 20U;

}  // namespace

bool mayGoOn(const std::stop_token& stop) {
    if (!stop.stop_requested()) return true;
    errno = ECANCELED;
    return false;
}

void WatchedCopy::plan(std::int64_t bytes) const {
    if (watch_.planned) watch_.planned(bytes);
}

bool WatchedCopy::add(std::int64_t bytes) {
    untold_ = saturatedSum(untold_, bytes);
    if (untold_ >= piece) tell();
    return mayGoOn(watch_.stop);
}

void WatchedCopy::tell() {
    if (const auto bytes = std::exchange(untold_, 0); bytes > 0 && watch_.copied)
        watch_.copied(bytes);
}

}  // namespace nookwise
