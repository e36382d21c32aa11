// Writing files that must outlive a loss of power.
#pragma once

#include "platform/Contents.h"

#include <string_view>

namespace nookwise {

/// Makes `name` in the open folder `folder`, for its owner alone, and has all of `contents` on the
/// disk when it returns; the name itself only after syncFolder. False with errno set, EEXIST when
/// anything has the name, ECANCELED when the source gives up; then nothing was left of it.
bool writeDurableFile(int folder, const char* name, const ContentsSource& contents);

/// Likewise with contents that are there as a whole.
bool writeDurableFile(int folder, const char* name, std::string_view contents);

}  // namespace nookwise
