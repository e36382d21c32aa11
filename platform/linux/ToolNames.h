// Programs whose name says how a file came about.
#pragma once

#include <string_view>

namespace nookwise {

/// True for what takes pictures of the screen. `name` is what the program calls itself, in any
/// case; a version or another addition may follow it.
bool namesCaptureTool(std::string_view name);

/// True for what registers the files it has written as recently used: browsers, downloaders,
/// capture tools. `name` as above.
bool namesWriter(std::string_view name);

}  // namespace nookwise
