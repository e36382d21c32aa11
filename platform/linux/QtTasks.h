// Tasks on Qt's event loop and on threads beside it.
#pragma once

#include "platform/Tasks.h"
#include "platform/linux/BackgroundThread.h"

#include <QObject>
#include <list>
#include <memory>

namespace nookwise {

/// Created and destroyed on the UI thread, while the application object exists. Destroying it waits
/// for all detached work, so whoever detached long work must have requested its stop before.
/// Detached work may post until it ends. What was posted or delayed and has not run by then is
/// dropped.
class QtTasks : public Tasks {
  public:
    QtTasks();
    ~QtTasks() override;

    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<Delay> after(std::chrono::milliseconds delay,
                                               std::function<void()> work) override;
    void detach(TaskPriority priority, std::function<void()> work) override;

    /// How many detached threads have not been joined yet. UI thread only.
    std::size_t threadCount() const noexcept { return threads_.size(); }

  private:
    bool isUiThread() const;

    // The UI thread's end of everything: what is queued for it or connected to it goes with it.
    std::unique_ptr<QObject> uiThread_;
    std::list<BackgroundThread> threads_;
};

}  // namespace nookwise
