// The text of the activity file.
#pragma once

#include "fileops/ActivityEntry.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// A JSON array of the entries in their order, without whitespace.
std::string activityJson(std::span<const ActivityEntry> entries);

/// None when the text is not JSON or any entry is not as `activityJson` writes it; keys that it
/// does not know are passed over.
std::optional<std::vector<ActivityEntry>> activityFromJson(std::string_view text);

}  // namespace nookwise
