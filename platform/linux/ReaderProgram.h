// Where the program of the reader processes lies, and with what it is started.
#pragma once

#include "platform/linux/Environment.h"

#include <string>
#include <vector>

namespace nookwise {

/// Where the program belongs that was built or installed together with `executable`: beside the
/// folder of programs when installed, else in the build tree. It need not be there.
FileUrl readerProgramOf(const FileUrl& executable);

/// That of the running executable.
FileUrl readerProgram();

/// "NAME=value" each: what recognition needs to know of the user's languages and of where its data
/// lies, and nothing else.
std::vector<std::string> readerEnvironment(const Environment& environment);

}  // namespace nookwise
