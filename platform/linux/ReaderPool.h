// The reader processes, lent to one caller at a time.
#pragma once

#include "platform/Result.h"
#include "platform/linux/CallStop.h"
#include "platform/linux/ReaderLimits.h"
#include "platform/linux/ReaderProcess.h"
#include "platform/linux/ReaderSlots.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace nookwise {

/// How far the kernel confines the reader processes: 0, or the errno that tells why it does not.
struct ReaderConfinement {
    std::int32_t fileSystemError = 0;
    std::int32_t systemCallsError = 0;

    friend bool operator==(const ReaderConfinement&, const ReaderConfinement&) = default;
};

/// Constructed by a thread of normal priority, because every process inherits it, and destroyed
/// when nobody borrows any more; that ends all processes. Everything else may be called from any
/// thread.
class ReaderPool {
  public:
    /// A process that was lent; gone from the pool unless it is given back.
    class Loan {
      public:
        Loan(ReaderPool& pool, ReaderSlot& slot) : pool_(&pool), slot_(&slot) {}
        Loan(Loan&& other) noexcept
            : pool_(other.pool_), slot_(std::exchange(other.slot_, nullptr)) {}
        Loan& operator=(Loan&&) = delete;
        ~Loan() {
            if (slot_ != nullptr) pool_->end(*slot_);
        }

        const ReaderProcess& process() const { return *slot_->process; }
        /// As in its ReaderGreeting.
        std::int32_t recognitionError() const { return slot_->recognitionError; }
        /// Still fit for use.
        void giveBack() { pool_->takeBack(*std::exchange(slot_, nullptr)); }

      private:
        ReaderPool* pool_;
        ReaderSlot* slot_;
    };

    ReaderPool(FileUrl program, std::vector<std::string> environment, const ReaderLimits& limits);
    ~ReaderPool();

    /// Waits for a process, first come, first served. Fails when a stop is requested
    /// (std::errc::operation_canceled) or when none can be had.
    Result<Loan> borrow(ReaderRole role, const CallStop& stop);

    /// As the newest process said; none before the first.
    std::optional<ReaderConfinement> confinement() const;

  private:
    enum class Greeting { given, lost };
    using Lock = std::unique_lock<std::mutex>;

    Result<ReaderSlot*> obtain(ReaderRole role, const CallStop& stop);
    Result<ReaderSlot*> started(ReaderSlot& slot, Lock& lock);
    Result<Greeting> greet(ReaderSlot& slot, const CallStop& stop);
    FileError failedStart(std::errc reason);
    void note(const ReaderConfinement& confinement);
    void end(ReaderSlot& slot);
    void takeBack(ReaderSlot& slot);

    void keep();
    void startWanted(Lock& lock);
    void waitForNews(Lock& lock, std::optional<ReaderSlots::Time> until);
    void endAll(Lock& lock);
    void wakeKeeper() const;

    const FileUrl program_;
    const std::vector<std::string> environment_;
    const ReaderLimits limits_;
    const FileDescriptor wake_;
    /// Why there is no `wake_`.
    std::optional<FileError> unusable_;

    mutable std::mutex mutex_;
    std::condition_variable_any changed_;
    ReaderSlots slots_;
    std::optional<ReaderConfinement> confinement_;
    bool isClosing_ = false;

    // Starts and forgets the processes. Callers' threads come and go, and each of their ends would
    // be told to the processes that they had started. None where `wake_` is. Last: it uses
    // everything above.
    std::jthread keeper_;
};

}  // namespace nookwise
