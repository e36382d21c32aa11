// The activity log that is saved, the same in every process.
#pragma once

#include "fileops/ActivityEntry.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace nookwise {

inline std::vector<ActivityEntry> logOf(std::size_t count) {
    std::vector<ActivityEntry> entries;
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = std::to_string(1'000'000 + i);
        const auto id = Uuid::fromText("00000000-0000-4000-8000-00000" + number);
        const FileUrl file("/home/user/Downloads/file " + number);
        entries.push_back({.id = id.value(),
                           .date = Date(Seconds(1'700'000'000.0 + static_cast<double>(i))),
                           .title = "Moved 1 file to the Trash",
                           .source = "Downloads",
                           .moves = {{file, FileUrl("/home/user/Trash/file " + number), 4096}}});
    }
    return entries;
}

}  // namespace nookwise
