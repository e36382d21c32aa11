// Where the desktop says that the user's files and settings are.
#pragma once

#include "platform/FileUrl.h"

#include <functional>
#include <string>
#include <vector>

namespace nookwise {

/// The value of an environment variable, empty when it is not set. May be called from any thread.
using Environment = std::function<std::string(const char* name)>;

/// The environment of this process.
std::string processEnvironment(const char* name);

/// The folders that the XDG variables name, or their defaults. A relative path in a variable counts
/// as not set.
struct BaseFolders {
    FileUrl home;
    FileUrl configHome;
    FileUrl dataHome;
    /// The shared data folders, the most important first; without `dataHome`.
    std::vector<FileUrl> dataFolders;
};

BaseFolders baseFolders(const Environment& environment);

}  // namespace nookwise
