// Writing small files whose loss would lose nothing.
#pragma once

#include <string_view>

namespace nookwise {

/// Makes `name` in the open folder `folder`, for its owner alone, and writes all of `contents`.
/// False with errno set, EEXIST when anything has the name; then nothing was left of it. Not
/// durable: the bytes reach the disk when the system sees fit.
bool writeNewFile(int folder, const char* name, std::string_view contents);

/// Whether a process was killed while it wrote `name` with `writeNewFile`. Never true where the
/// file system keeps no permissions.
bool isUnfinishedFile(int folder, const char* name);

}  // namespace nookwise
