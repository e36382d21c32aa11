// Closing the file system to a process (Landlock).
#pragma once

#include <span>
#include <string>

namespace nookwise {

/// From now on the process can open no file, but read those that are `readable` or below it; what
/// is not there is passed by. Nor can it bind or connect TCP sockets, reach abstract Unix sockets
/// or send signals to others, where the kernel knows how to forbid that. Files that are open
/// already stay so. Returns 0, or the errno of what the kernel would not do: EBUSY where the
/// process has several threads, of which it would close in only this one.
int closeFileSystem(std::span<const std::string> readable);

}  // namespace nookwise
