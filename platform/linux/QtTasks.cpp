#include "platform/linux/QtTasks.h"

#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

namespace nookwise {
namespace {

class TimerDelay : public Tasks::Delay {
  public:
    /// The work goes with `context`, should that end first.
    TimerDelay(std::chrono::milliseconds delay, const QObject* context,
               std::function<void()> work) {
        timer_.setSingleShot(true);
        // Others may fire before the time has passed.
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, context, std::move(work));
        constexpr std::chrono::milliseconds longest{std::numeric_limits<int>::max()};
        timer_.start(std::clamp(delay, std::chrono::milliseconds::zero(), longest));
    }

  private:
    QTimer timer_;
};

}  // namespace

QtTasks::QtTasks() : uiThread_(std::make_unique<QObject>()) {}

QtTasks::~QtTasks() {
    assert(isUiThread());
    // Threads that still run may post, so there must be something to post to until they have ended.
    threads_.clear();
}

void QtTasks::post(std::function<void()> work) {
    QMetaObject::invokeMethod(
        uiThread_.get(), [work = std::move(work)] { work(); }, Qt::QueuedConnection);
}

std::unique_ptr<Tasks::Delay> QtTasks::after(std::chrono::milliseconds delay,
                                             std::function<void()> work) {
    assert(isUiThread());
    return std::make_unique<TimerDelay>(delay, uiThread_.get(), std::move(work));
}

void QtTasks::detach(TaskPriority priority, std::function<void()> work) {
    assert(isUiThread());
    threads_.remove_if([](const BackgroundThread& thread) { return thread.isFinished(); });
    threads_.emplace_back(priority, std::move(work));
}

bool QtTasks::isUiThread() const {
    return QThread::currentThread() == uiThread_->thread();
}

}  // namespace nookwise
