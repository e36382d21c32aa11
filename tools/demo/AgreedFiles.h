// What a sample home's files are to be taken for.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace nookwise::demo {

/// Stands in for what cannot be set on a freshly made file.
struct AgreedAttributes {
    Date added{};
    std::optional<Date> lastUsed;
    /// Only where the file takes less room than it is shown with.
    std::optional<std::int64_t> allocatedSize;
};

using AgreedFiles = std::unordered_map<FileUrl, AgreedAttributes>;

}  // namespace nookwise::demo
