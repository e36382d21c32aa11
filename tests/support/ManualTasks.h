// Tasks that run when the test says so.
#pragma once

#include "platform/Tasks.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

namespace nookwise {

/// The thread of the test is the UI thread. `post` may be called from any thread, everything else
/// from the test's. Work that never ran is dropped with this object.
class ManualTasks : public Tasks {
  public:
    ManualTasks();
    ~ManualTasks() override;

    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<Delay> after(std::chrono::milliseconds delay,
                                               std::function<void()> work) override;
    void detach(TaskPriority priority, std::function<void()> work) override;

    /// Runs what was posted, and what that posts in turn.
    void runUiTasks();
    std::size_t postedTasks() const;

    /// Moves the monotonic clock, running on the way the delays that fall due, the earliest first.
    /// Does not run what they post.
    void advance(std::chrono::milliseconds duration);
    std::size_t pendingDelays() const;

    /// The oldest detached work that waits, for the test to run wherever it likes; empty when none
    /// waits.
    std::function<void()> takeBackgroundTask();
    /// Runs the oldest detached work that waits, on this thread. False when none waits.
    bool runBackgroundTask();
    /// Detached and posted work in turn until there is no more of either.
    void runEverything();
    std::size_t waitingBackgroundTasks() const { return waiting_.size(); }
    /// The priority of every piece of work ever detached, in order.
    const std::vector<TaskPriority>& detachedPriorities() const { return priorities_; }

  private:
    struct Delays;
    class DelayHandle;

    mutable std::mutex mutex_;
    std::deque<std::function<void()>> posted_;
    std::deque<std::function<void()>> waiting_;
    std::vector<TaskPriority> priorities_;
    // Shared with the handles, one of which may outlive this object.
    std::shared_ptr<Delays> delays_;
};

}  // namespace nookwise
