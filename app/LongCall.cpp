#include "app/LongCall.h"

namespace nookwise {
namespace {

/// A window that stands still for no longer is not felt to hang.
constexpr Seconds patience{0.1};
/// Painting takes time from the work.
constexpr Seconds interval{0.05};

}  // namespace

LongCall::LongCall(Observable<std::optional<Busy>>& busy, const Clock& clock, std::size_t total)
    : busy_(busy), clock_(clock), total_(total), next_(clock.now() + patience) {}

void LongCall::report(std::size_t done) {
    const auto now = clock_.now();
    // A clock that was set back must not end the reports.
    if (now < next_ && now > next_ - 2 * patience) return;
    busy_.set(Busy{done, total_});
    // Counted from the end of the painting.
    next_ = clock_.now() + interval;
}

}  // namespace nookwise
