// One recorded change to the user's files.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"
#include "platform/Uuid.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

struct ActivityEntry {
    enum class Kind { trash, move, copy, rename };

    /// One file's before and after.
    struct Move {
        FileUrl original;
        /// Where the operation put the file: its place in the Trash, its new folder or its new
        /// name.
        FileUrl inTrash;
        /// Bytes, at the time of the operation.
        std::int64_t size = 0;

        friend bool operator==(const Move&, const Move&) = default;
    };

    Uuid id;
    /// When the operation finished.
    Date date{};
    /// The line shown for the entry.
    std::string title;
    /// Where the operation was started: a pile's or a screen's name.
    std::string source;
    /// In the order in which the files were processed.
    std::vector<Move> moves;
    /// Whether the entry has been put back.
    bool restored = false;
    /// None in entries of the trash flow, where it means the same as `trash`.
    std::optional<Kind> kind;

    Kind effectiveKind() const { return kind.value_or(Kind::trash); }

    /// The original names, in the order of `moves`.
    std::vector<std::string> names() const;

    friend bool operator==(const ActivityEntry&, const ActivityEntry&) = default;
};

/// The text by which a kind is stored.
std::string_view rawValue(ActivityEntry::Kind kind);
std::optional<ActivityEntry::Kind> activityKindFromRawValue(std::string_view rawValue);

/// The bytes that went to the Trash since `start`, that moment included, and were not put back. A
/// sum that overflows stops the program.
std::int64_t freedSince(const std::vector<ActivityEntry>& entries, Date start);

}  // namespace nookwise

template <>
struct std::hash<nookwise::ActivityEntry::Move> {
    std::size_t operator()(const nookwise::ActivityEntry::Move& move) const noexcept;
};

template <>
struct std::hash<nookwise::ActivityEntry> {
    std::size_t operator()(const nookwise::ActivityEntry& entry) const noexcept;
};
