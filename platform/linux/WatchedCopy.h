// How far a copy is, for who watches it.
#pragma once

#include "platform/CopyWatch.h"

#include <cstdint>
#include <stop_token>

namespace nookwise {

/// False with errno ECANCELED after a stop request.
bool mayGoOn(const std::stop_token& stop);

/// Counts the bytes of one move or copy and passes them on in pieces. One thread at a time.
class WatchedCopy {
  public:
    /// `watch` must outlive it.
    explicit WatchedCopy(const CopyWatch& watch) : watch_(watch) {}

    const std::stop_token& stop() const { return watch_.stop; }

    void plan(std::int64_t bytes) const;
    /// False with errno ECANCELED when the copy is to end here.
    bool add(std::int64_t bytes);
    /// Tells what has not been told yet.
    void tell();

  private:
    const CopyWatch& watch_;
    std::int64_t untold_ = 0;
};

}  // namespace nookwise
