#include "fileops/ActivityEntry.h"

#include "model/ByteSum.h"
#include "model/HashCombine.h"

#include <array>

namespace nookwise {
namespace {

constexpr std::array<std::string_view, 4> kindTexts{"trash", "move", "copy", "rename"};

}  // namespace

std::vector<std::string> ActivityEntry::names() const {
    std::vector<std::string> names;
    names.reserve(moves.size());
    for (const auto& move : moves) names.emplace_back(move.original.lastPathComponent());
    return names;
}

std::string_view rawValue(ActivityEntry::Kind kind) {
    return kindTexts[static_cast<std::size_t>(kind)];
}

std::optional<ActivityEntry::Kind> activityKindFromRawValue(std::string_view rawValue) {
    for (std::size_t i = 0; i < kindTexts.size(); ++i) {
        if (kindTexts[i] == rawValue) return static_cast<ActivityEntry::Kind>(i);
    }
    return std::nullopt;
}

std::int64_t freedSince(const std::vector<ActivityEntry>& entries, Date start) {
    std::int64_t sum = 0;
    for (const auto& entry : entries) {
        const bool counts = entry.date >= start && !entry.restored &&
                            entry.effectiveKind() == ActivityEntry::Kind::trash;
        if (!counts) continue;
        for (const auto& move : entry.moves) sum = byteSum(sum, move.size);
    }
    return sum;
}

}  // namespace nookwise

std::size_t std::hash<nookwise::ActivityEntry::Move>::operator()(
    const nookwise::ActivityEntry::Move& move) const noexcept {
    return nookwise::hashOf(move.original, move.inTrash, move.size);
}

std::size_t std::hash<nookwise::ActivityEntry>::operator()(
    const nookwise::ActivityEntry& entry) const noexcept {
    std::size_t moves = entry.moves.size();
    for (const auto& move : entry.moves) moves = nookwise::hashOf(moves, move);
    return nookwise::hashOf(entry.id, entry.date.time_since_epoch().count(), entry.title,
                            entry.source, moves, entry.restored, entry.kind);
}
