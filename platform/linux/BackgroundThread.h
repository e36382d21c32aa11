// A thread that runs one piece of work.
#pragma once

#include "platform/Tasks.h"

#include <atomic>
#include <functional>
#include <thread>

namespace nookwise {

/// Utility work runs at the idle class of processor and disk, and so does every thread that it
/// starts; a system that refuses leaves it at normal priority. Destroying this waits for the work's
/// end.
class BackgroundThread {
  public:
    BackgroundThread(TaskPriority priority, std::function<void()> work);

    /// True once the work has ended and has been destroyed. May be asked from any thread.
    bool isFinished() const noexcept { return isFinished_.load(std::memory_order_acquire); }

  private:
    void run(TaskPriority priority, std::function<void()> work);

    std::atomic<bool> isFinished_{false};
    // Last: it runs before the constructor returns, and is joined before anything else is
    // destroyed.
    std::jthread thread_;
};

}  // namespace nookwise
