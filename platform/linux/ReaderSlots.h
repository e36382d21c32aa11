// Which reader processes there are, and who gets one next.
#pragma once

#include "platform/Result.h"
#include "platform/linux/ReaderLimits.h"
#include "platform/linux/ReaderProcess.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <set>

namespace nookwise {

enum class ReaderRole { text, pictures };

/// A process, or the place for one.
struct ReaderSlot {
    enum class State {
        /// To be started.
        wanted,
        /// Could not be started.
        failed,
        lent,
        idle,
        /// Was told to end.
        ending,
    };

    ReaderRole role = ReaderRole::text;
    State state = State::wanted;
    /// Of everything but `wanted` and `failed`.
    std::optional<ReaderProcess> process;
    bool hasGreeted = false;
    /// As its greeting said.
    std::int32_t recognitionError = 0;
    /// Of `failed`.
    std::optional<FileError> error;
    std::chrono::steady_clock::time_point idleSince;
};

/// For one thread at a time. Times are handed in.
class ReaderSlots {
  public:
    using Time = std::chrono::steady_clock::time_point;
    /// Somebody's place in the line for a role.
    using Ticket = std::uint64_t;

    explicit ReaderSlots(const ReaderLimits& limits) : limits_(limits) {}

    Ticket join(ReaderRole role);
    void leave(ReaderRole role, Ticket ticket);

    /// A process that is now lent to the ticket's holder, or a slot whose process must be started
    /// for it. None when it has to wait until any slot or line changes.
    ReaderSlot* obtain(ReaderRole role, Ticket ticket, Time now);

    /// Why there is no use in waiting: the last start failed a moment ago, and no process of the
    /// role is there to wait for.
    const FileError* refusal(ReaderRole role, Time now) const;
    void noteFailedStart(const FileError& error, Time now);

    static void end(ReaderSlot& slot);
    void endAll();
    /// Ends what has been idle for too long or has died, and forgets what is gone.
    void tidy(Time now);
    /// When something will have been idle for too long.
    std::optional<Time> nextIdleEnd() const;

    void remove(ReaderSlot& slot);
    std::list<ReaderSlot>& all() { return slots_; }

  private:
    std::size_t count(ReaderRole role) const;
    bool isAny(ReaderSlot::State state) const;
    ReaderSlot* idle(ReaderRole role);
    ReaderSlot* takeIdle(ReaderRole role);
    bool isFull() const { return slots_.size() >= limits_.processes; }
    bool mayStart(Time now) const;
    bool picturesComeFirst(Time now);
    void makeRoom(ReaderRole role);
    std::set<Ticket>& line(ReaderRole role) { return lines_[static_cast<std::size_t>(role)]; }

    ReaderLimits limits_;
    // A list, because addresses of slots stay.
    std::list<ReaderSlot> slots_;
    std::array<std::set<Ticket>, 2> lines_;
    Ticket lastTicket_ = 0;
    std::optional<FileError> failedStart_;
    Time startsFrom_;
};

}  // namespace nookwise
