// Timing several ways to the same end side by side.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace nookwise::bench {

/// One way to do the work. Run from start to end on the calling thread.
struct Contestant {
    std::string name;
    std::function<void()> run;
    /// What must be there before each run; not measured.
    std::function<void()> prepare = [] {};
};

/// The median wall time of each contestant in seconds, over `rounds` rounds in which each has its
/// turn, after one round to warm the caches.
std::vector<double> medians(const std::vector<Contestant>& contestants, int rounds = 5);

/// Prints each median and its ratio to the one before it in `base`.
void printRatios(const std::string& title, const std::vector<Contestant>& contestants,
                 const std::vector<double>& seconds, std::size_t base);

/// True when the command can be found on the machine.
bool isInstalled(const std::string& command);

/// Runs a command with its output thrown away. Stops the benchmark when it cannot be run.
void runQuietly(const std::vector<std::string>& arguments);

/// Runs `work` in a child process and returns that process's peak of resident memory in megabytes.
double peakMegabytes(const std::function<void()>& work);

}  // namespace nookwise::bench
