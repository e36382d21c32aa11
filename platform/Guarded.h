// A value that several threads share.
#pragma once

#include <mutex>
#include <utility>

namespace nookwise {

/// The value can be reached only while its lock is held.
template <typename T>
class Guarded {
  public:
    /// `use` takes a T&; references to the value must not leave it.
    template <typename Use>
    decltype(auto) with(Use&& use) {
        const std::lock_guard lock(mutex_);
        return std::forward<Use>(use)(value_);
    }

  private:
    std::mutex mutex_;
    T value_{};
};

}  // namespace nookwise
