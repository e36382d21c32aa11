// Running other programs in a home of their own.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

struct CommandResult {
    /// -1 when a signal ended it.
    int exitCode = -1;
    /// What it wrote, errors included.
    std::string output;
};

/// Runs a program with `home` as its home and working folder, "data" in it as the folder of the
/// user's data, and waits until it ends. Nothing reaches it from this process's desktop session.
CommandResult runIn(const TemporaryFolder& home, const std::vector<std::string>& command,
                    std::string_view input = {});

/// Whether a program can be found by its name.
bool isInstalled(const std::string& program);

}  // namespace nookwise
