// The record of one temporary name, as it is written.
#pragma once

#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// What is done at the next start with what still has the temporary name.
enum class LeftoverUse { remove, putBack };

struct UnfinishedRecord {
    /// Where the temporary name is.
    FileUrl url;
    /// The only file that the record is about; any, when missing.
    std::optional<std::uint64_t> inode;
    LeftoverUse use = LeftoverUse::remove;
    /// The name in the same folder that it had, or was to get. Never empty when it is put back.
    std::string properName;

    friend bool operator==(const UnfinishedRecord&, const UnfinishedRecord&) = default;
};

/// The temporary name that belongs to a record's own name.
std::string temporaryName(std::string_view recordName);

/// How a record says what it is used for: its first byte, so that another use can be written over
/// it, which even a loss of power does wholly or not at all.
char useMark(LeftoverUse use);

std::string encoded(const UnfinishedRecord& record);

/// None for anything that could not have been encoded under that name.
std::optional<UnfinishedRecord> decoded(std::string_view recordName, std::string_view text);

}  // namespace nookwise
