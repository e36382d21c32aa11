// Talking with a reader process, which may answer anything or nothing.
#pragma once

#include "platform/linux/CallStop.h"
#include "platform/linux/ReaderLimits.h"
#include "platform/linux/ReaderProcess.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace nookwise {

/// Everything from its construction on counts against the limits. Both the process and the stop
/// must outlive it.
class ReaderTalk {
  public:
    enum class Outcome {
        done,
        stopped,
        /// A limit was reached.
        overran,
        /// The process has ended, or has closed its end.
        hungUp,
        /// The system had no room for what was to be sent, and nothing was.
        notSent,
    };

    ReaderTalk(const ReaderProcess& process, const CallStop& stop,
               std::chrono::nanoseconds processorTime, std::chrono::nanoseconds elapsedTime);

    /// `file` may be -1.
    Outcome send(const void* bytes, std::size_t count, int file);
    Outcome receive(void* bytes, std::size_t count);
    /// The text grows as the bytes come in.
    Outcome receive(std::string& bytes, std::size_t count);
    /// Until the process has ended.
    Outcome waitForEnd();

    enum class Unasked { nothing, bytes, hangUp };
    /// What came from a process of which nothing was asked.
    static Unasked unasked(const ReaderProcess& process);

  private:
    using Clock = std::chrono::steady_clock;

    Outcome waitFor(int descriptor);
    std::chrono::nanoseconds timeLeft() const;
    std::chrono::nanoseconds waitedForProcessor() const;

    const ReaderProcess& process_;
    const CallStop& stop_;
    std::chrono::nanoseconds lastProcessorTime_;
    std::chrono::nanoseconds waitedBefore_;
    Clock::time_point deadline_;
};

}  // namespace nookwise
