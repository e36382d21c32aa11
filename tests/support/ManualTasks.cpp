#include "tests/support/ManualTasks.h"

#include <map>

namespace nookwise {

struct ManualTasks::Delays {
    /// When the work is due, and its number: equal times run in the order of asking.
    using Key = std::pair<std::chrono::milliseconds, std::uint64_t>;

    std::map<Key, std::function<void()>> due;
    std::chrono::milliseconds now{0};
    std::uint64_t lastNumber = 0;
};

class ManualTasks::DelayHandle : public Tasks::Delay {
  public:
    DelayHandle(const std::shared_ptr<Delays>& delays, Delays::Key key)
        : delays_(delays), key_(key) {}
    ~DelayHandle() override {
        const auto delays = delays_.lock();
        if (delays == nullptr) return;
        const auto entry = delays->due.find(key_);
        if (entry == delays->due.end()) return;
        // Destroyed only after it has left the map: what the work holds may own further delays.
        const auto work = std::move(entry->second);
        delays->due.erase(entry);
    }
    DelayHandle(const DelayHandle&) = delete;
    DelayHandle& operator=(const DelayHandle&) = delete;

  private:
    std::weak_ptr<Delays> delays_;
    Delays::Key key_;
};

ManualTasks::ManualTasks() : delays_(std::make_shared<Delays>()) {}
ManualTasks::~ManualTasks() = default;

void ManualTasks::post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
}

std::unique_ptr<Tasks::Delay> ManualTasks::after(std::chrono::milliseconds delay,
                                                 std::function<void()> work) {
    const Delays::Key key{delays_->now + delay, ++delays_->lastNumber};
    delays_->due.emplace(key, std::move(work));
    return std::make_unique<DelayHandle>(delays_, key);
}

void ManualTasks::detach(TaskPriority priority, std::function<void()> work) {
    priorities_.push_back(priority);
    waiting_.push_back(std::move(work));
}

void ManualTasks::runUiTasks() {
    for (;;) {
        std::function<void()> work;
        {
            const std::lock_guard lock(mutex_);
            if (posted_.empty()) return;
            work = std::move(posted_.front());
            posted_.pop_front();
        }
        work();
    }
}

std::size_t ManualTasks::postedTasks() const {
    const std::lock_guard lock(mutex_);
    return posted_.size();
}

void ManualTasks::advance(std::chrono::milliseconds duration) {
    const auto end = delays_->now + duration;
    while (!delays_->due.empty() && delays_->due.begin()->first.first <= end) {
        const auto next = delays_->due.begin();
        delays_->now = next->first.first;
        const auto work = std::move(next->second);
        delays_->due.erase(next);
        work();
    }
    delays_->now = end;
}

std::size_t ManualTasks::pendingDelays() const {
    return delays_->due.size();
}

std::function<void()> ManualTasks::takeBackgroundTask() {
    if (waiting_.empty()) return {};
    auto work = std::move(waiting_.front());
    waiting_.pop_front();
    return work;
}

bool ManualTasks::runBackgroundTask() {
    const auto work = takeBackgroundTask();
    if (work) work();
    return static_cast<bool>(work);
}

void ManualTasks::runEverything() {
    for (;;) {
        runUiTasks();
        if (!runBackgroundTask() && postedTasks() == 0) return;
    }
}

}  // namespace nookwise
