// Work on the UI thread and beside it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

namespace nookwise {

enum class TaskPriority {
    /// The user waits for it.
    userInitiated,
    /// Runs only when the processor and the disk have nothing better to do.
    utility,
};

class Tasks {
  public:
    /// Destroying it cancels what has not happened yet.
    class Delay {
      public:
        virtual ~Delay() = default;
    };

    virtual ~Tasks() = default;

    /// Runs `work` on the UI thread, after everything posted before it. May be called from any
    /// thread.
    virtual void post(std::function<void()> work) = 0;

    /// Runs `work` once on the UI thread, `delay` from now on a monotonic clock. UI thread only.
    [[nodiscard]] virtual std::unique_ptr<Delay> after(std::chrono::milliseconds delay,
                                                       std::function<void()> work) = 0;

    /// Runs `work` on a background thread of its own. Threads that `work` starts inherit the
    /// priority. UI thread only. The application's end requests no stop of its own: who detaches
    /// work keeps the stop source, and stops it.
    virtual void detach(TaskPriority priority, std::function<void()> work) = 0;
};

}  // namespace nookwise
