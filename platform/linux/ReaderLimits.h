// How much of the machine reading files may take.
#pragma once

#include "platform/linux/ReaderProtocol.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <thread>

namespace nookwise {

/// What one file may cost.
struct ReaderJobLimits {
    std::chrono::nanoseconds processorTime;
    /// By the clock, but without the time for which the process waited for its turn at a processor:
    /// it has the idle priority and may wait long while the machine is busy.
    std::chrono::nanoseconds elapsedTime;
    /// In bytes.
    std::uint64_t reply;
};

struct ReaderLimits {
    ReaderJobLimits text{
        .processorTime = std::chrono::seconds(20),
        .elapsedTime = std::chrono::seconds(120),
        .reply = longestTextReply,
    };
    ReaderJobLimits pictures{
        .processorTime = std::chrono::seconds(5),
        .elapsedTime = std::chrono::seconds(15),
        .reply = longestReply,
    };
    /// From starting a process to its greeting. Long, because its libraries may have to come from a
    /// slow disk while the user logs in.
    std::chrono::nanoseconds start = std::chrono::seconds(60);
    /// How long a process stays without work.
    std::chrono::nanoseconds idle = std::chrono::seconds(10);
    /// How long no start is tried after one that failed.
    std::chrono::nanoseconds afterFailedStart = std::chrono::seconds(30);
    /// All together.
    std::size_t processes = 4;
    /// For text, and as many for pictures.
    std::size_t processesOfARole =
        std::clamp<std::size_t>(std::thread::hardware_concurrency(), 2, 4);
};

}  // namespace nookwise
