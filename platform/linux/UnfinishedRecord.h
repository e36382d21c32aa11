// The record of one temporary name, as it is written.
#pragma once

#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

struct UnfinishedRecord {
    /// Where the temporary name is.
    FileUrl url;
    /// The only file to be removed under that name; any, when missing.
    std::optional<std::uint64_t> inode;

    friend bool operator==(const UnfinishedRecord&, const UnfinishedRecord&) = default;
};

/// The temporary name that belongs to a record's own name.
std::string temporaryName(std::string_view recordName);

std::string encoded(const UnfinishedRecord& record);

/// None for anything that could not have been encoded under that name.
std::optional<UnfinishedRecord> decoded(std::string_view recordName, std::string_view text);

}  // namespace nookwise
