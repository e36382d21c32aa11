// The short texts for sizes, ages and paths that are shown everywhere.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nookwise::Fmt {

/// A byte count in decimal units from KB to TB: "Zero KB", "1 KB", "1.5 MB", "1.23 GB". Halves
/// round up.
std::string bytes(std::int64_t count);

/// The date as seen from `now` ("3 mo. ago"); "—" for a missing date.
std::string ago(std::optional<Date> date, Date now);

/// Whole calendar months from the date to `now`; 0 for a missing date.
int monthsSince(std::optional<Date> date, Date now);

/// The path with the characters of the home folder's path replaced by "~" when it begins with them.
std::string shortPath(const FileUrl& url, const FileUrl& home);

}  // namespace nookwise::Fmt
