#include "bench/Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise::bench {
namespace {

double secondsFor(const Contestant& contestant) {
    contestant.prepare();
    const auto start = std::chrono::steady_clock::now();
    contestant.run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

[[noreturn]] void fail(const std::string& message) {
    std::fprintf(stderr, "%s\n", message.c_str());
    std::exit(1);
}

int waitFor(pid_t child, rusage* usage) {
    int status = 0;
    if (::wait4(child, &status, 0, usage) != child || !WIFEXITED(status))
        fail("a measured process did not end by itself");
    return WEXITSTATUS(status);
}

}  // namespace

std::vector<double> medians(const std::vector<Contestant>& contestants, int rounds) {
    std::vector<std::vector<double>> times(contestants.size());
    for (const auto& contestant : contestants) secondsFor(contestant);
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i)
            times[i].push_back(secondsFor(contestants[i]));
    }
    std::vector<double> result;
    for (const auto& each : times) result.push_back(median(each));
    return result;
}

void printRatios(const std::string& title, const std::vector<Contestant>& contestants,
                 const std::vector<double>& seconds, std::size_t base) {
    std::printf("\n%s (medians, warm cache)\n", title.c_str());
    for (std::size_t i = 0; i < contestants.size(); ++i) {
        std::printf("  %-58s %7.3f s   ratio %.2f\n", contestants[i].name.c_str(), seconds[i],
                    seconds[i] / seconds[base]);
    }
}

bool isInstalled(const std::string& command) {
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "/usr/bin:/bin" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (::access((folder + "/" + command).c_str(), X_OK) == 0) return true;
    }
    return false;
}

void runQuietly(const std::vector<std::string>& arguments) {
    std::vector<char*> pointers;
    for (const auto& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int code =
        ::posix_spawnp(&child, pointers.front(), &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (code != 0 || waitFor(child, nullptr) != 0) fail("cannot run " + arguments.front());
}

double peakMegabytes(const std::function<void()>& work) {
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child < 0) fail("cannot fork");
    if (child == 0) {
        work();
        std::_Exit(0);
    }
    rusage usage{};
    if (waitFor(child, &usage) != 0) fail("the measured work failed");
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

}  // namespace nookwise::bench
