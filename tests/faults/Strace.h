// Running a program under strace, which can make any of its system calls fail or be its last.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nookwise {

using Command = std::vector<std::string>;

/// One system call of a process: strace counts those of each name on their own, from the process's
/// first.
struct SystemCall {
    std::string name;
    std::size_t occurrence;
};

struct Fault {
    SystemCall call;
    /// As strace has it: "signal=KILL" ends the process before the call does anything, and
    /// "error=EIO" makes the call do nothing and fail.
    std::string effect;
    /// Whether it meets all later calls of that name, too.
    bool isLasting = false;
};

enum class Outcome {
    reportedSuccess,
    reportedFailure,
    killed,
    /// Ended in any other way.
    crashed,
};

struct TracedRun {
    Outcome outcome;
    bool isFaultLasting = false;
    /// Whether strace says that it did what it was asked for.
    bool isFaulted = false;
    /// What strace wrote.
    std::string log = {};
};

/// Runs programs one after another. `logFile` is overwritten each time.
class Strace {
  public:
    explicit Strace(std::string logFile) : logFile_(std::move(logFile)) {}

    /// Why programs cannot be traced here. None when they can.
    std::optional<std::string> obstacle() const;

    /// The calls on files that the program makes after asking for access to "/nookwise-begin".
    /// Empty when it does not report success.
    std::vector<SystemCall> callsOf(const Command& command) const;

    TracedRun run(const Command& command, const Fault& fault) const;

  private:
    TracedRun run(const Command& options, const Command& command) const;

    std::string logFile_;
};

}  // namespace nookwise
