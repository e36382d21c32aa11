// A value that tells who watches it when it changes.
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace nookwise {

/// Ends an observation when destroyed. May outlive the observed value.
class Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> observer) : observer_(std::move(observer)) {}

  private:
    std::shared_ptr<void> observer_;
};

/// UI thread only. Setting an equal value tells nobody; a type without an equality always tells.
/// Observers are told after the write, in the order in which they began to observe. An observer may
/// set the value again, begin and end observations, its own included.
template <typename T>
class Observable {
  public:
    Observable() = default;
    explicit Observable(T value) : value_(std::move(value)) {}
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    const T& get() const { return value_; }

    void set(T value) {
        if constexpr (std::equality_comparable<T>) {
            if (value == value_) return;
        }
        value_ = std::move(value);
        notify();
    }

    /// Changes the value in place, for values that are large to copy. `change` returns whether it
    /// changed anything.
    template <typename Change>
    requires std::predicate<Change, T&>
    void mutate(Change change) {
        if (change(value_)) notify();
    }

    [[nodiscard]] Subscription observe(std::function<void()> observer) {
        auto shared = std::make_shared<std::function<void()>>(std::move(observer));
        observers_.push_back(shared);
        return Subscription(std::move(shared));
    }

  private:
    void notify() {
        std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
        // A copy, because an observer may begin another observation.
        const auto told = observers_;
        for (const auto& weak : told) {
            if (const auto observer = weak.lock()) (*observer)();
        }
    }

    T value_{};
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
};

}  // namespace nookwise
