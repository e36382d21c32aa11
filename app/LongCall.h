// Showing how far a call is that holds up the window.
#pragma once

#include "app/Observable.h"
#include "platform/Clock.h"

#include <cstddef>
#include <optional>

namespace nookwise {

/// How many files are done, of how many.
struct Busy {
    std::size_t done = 0;
    std::size_t total = 0;

    friend bool operator==(const Busy&, const Busy&) = default;
};

/// UI thread only. Sets `busy` from time to time while files are worked on, and to none at its own
/// end. A call that is soon done shows nothing.
class LongCall {
  public:
    /// All arguments must outlive it.
    LongCall(Observable<std::optional<Busy>>& busy, const Clock& clock, std::size_t total);
    ~LongCall() { busy_.set(std::nullopt); }
    LongCall(const LongCall&) = delete;
    LongCall& operator=(const LongCall&) = delete;

    /// To be called between files.
    void report(std::size_t done);

  private:
    Observable<std::optional<Busy>>& busy_;
    const Clock& clock_;
    std::size_t total_;
    Date next_;
};

}  // namespace nookwise
