#include "tests/faults/Strace.h"

#include "tests/changes/Snapshot.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <map>
#include <sstream>
#include <string_view>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr std::string_view mark = "nookwise-begin";
// They work on descriptors, but on none of a file here.
constexpr std::array<std::string_view, 1> notOnFiles{"mmap"};

/// As waitpid tells how it ended. None when it could not be started.
std::optional<int> waitFor(const Command& command) {
    std::vector<char*> arguments;
    for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (::posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
        return std::nullopt;
    int status = 0;
    if (::waitpid(process, &status, 0) != process) return std::nullopt;
    return status;
}

Outcome outcomeOf(int status) {
    // strace ends as the program did.
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return Outcome::killed;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return Outcome::reportedSuccess;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 1) return Outcome::reportedFailure;
    return Outcome::crashed;
}

/// The name at the beginning of a line. None in lines about signals.
std::optional<std::string> callNamedIn(const std::string& line) {
    const auto end = line.find('(');
    if (end == std::string::npos || line.starts_with("+++") || line.starts_with("---"))
        return std::nullopt;
    return line.substr(0, end);
}

}  // namespace

std::optional<std::string> Strace::obstacle() const {
    const auto traced = run({"-e", "trace=execve"}, Command{"true"});
    if (traced.outcome == Outcome::reportedSuccess && !traced.log.empty()) return std::nullopt;
    return "strace is missing or may not trace here";
}

std::vector<SystemCall> Strace::callsOf(const Command& command) const {
    const auto traced = run({"-e", "trace=%file,%desc"}, command);
    if (traced.outcome != Outcome::reportedSuccess) return {};
    std::vector<SystemCall> calls;
    std::map<std::string, std::size_t> counts;
    bool hasBegun = false;
    std::istringstream lines(traced.log);
    for (std::string line; std::getline(lines, line);) {
        const auto name = callNamedIn(line);
        if (!name) continue;
        const auto occurrence = ++counts[*name];
        if (hasBegun && std::find(notOnFiles.begin(), notOnFiles.end(), *name) == notOnFiles.end())
            calls.push_back({*name, occurrence});
        hasBegun = hasBegun || line.find(mark) != std::string::npos;
    }
    return calls;
}

TracedRun Strace::run(const Command& command, const Fault& fault) const {
    const auto when = std::to_string(fault.call.occurrence) + (fault.isLasting ? "+" : "");
    const auto injection = fault.call.name + ":" + fault.effect + ":when=" + when;
    auto traced = run({"-e", "trace=" + fault.call.name, "-e", "inject=" + injection}, command);
    traced.isFaultLasting = fault.isLasting;
    return traced;
}

TracedRun Strace::run(const Command& options, const Command& command) const {
    Command whole{"strace", "-qq", "-o", logFile_};
    whole.insert(whole.end(), options.begin(), options.end());
    whole.insert(whole.end(), command.begin(), command.end());
    const auto status = waitFor(whole);
    TracedRun traced{.outcome = status ? outcomeOf(*status) : Outcome::crashed,
                     .log = contents(logFile_)};
    traced.isFaulted =
        traced.outcome == Outcome::killed || traced.log.find("(INJECTED)") != std::string::npos;
    return traced;
}

}  // namespace nookwise
