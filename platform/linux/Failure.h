// Telling why a system call failed.
#pragma once

#include "platform/Result.h"

#include <cerrno>
#include <string>
#include <utility>

namespace nookwise {

/// With the reason that errno holds, unless another is given.
inline FileError failure(const FileUrl& url, std::string operation, int code = errno) {
    return {.code = {code, std::generic_category()}, .url = url, .operation = std::move(operation)};
}

}  // namespace nookwise
