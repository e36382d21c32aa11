// Names that nobody else thinks of.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// 32 lower-case hexadecimal digits. None, with errno set, when the system has no random numbers.
std::optional<std::string> randomName();

/// Whether `name` could come from `randomName`.
bool isRandomName(std::string_view name);

}  // namespace nookwise
