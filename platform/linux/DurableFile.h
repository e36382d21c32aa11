// Writing small files that must outlive a loss of power.
#pragma once

#include <string_view>

namespace nookwise {

/// Makes `name` in the open folder `folder`, for its owner alone, and has all of `contents` on the
/// disk when it returns; the name itself only after syncFolder. False with errno set, EEXIST when
/// anything has the name; then nothing was left of it.
bool writeDurableFile(int folder, const char* name, std::string_view contents);

}  // namespace nookwise
