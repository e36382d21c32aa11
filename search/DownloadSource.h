// Which service a downloaded file came from.
#pragma once

#include <optional>
#include <span>
#include <string>

namespace nookwise {

/// The service of the most recent address that belongs to a known one, else the first address's
/// host, in lower case and without "www."; none when no address has a host. `addresses` has the
/// most recent one last.
std::optional<std::string> downloadSource(std::span<const std::string> addresses);

}  // namespace nookwise
