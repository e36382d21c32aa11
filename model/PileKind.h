// The piles of removal candidates.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace nookwise {

enum class PileKind { forgotten, installers, screenshots, large, duplicates };

inline constexpr std::array allPileKinds{PileKind::forgotten, PileKind::installers,
                                         PileKind::screenshots, PileKind::large,
                                         PileKind::duplicates};

/// The text by which a pile is stored in records.
std::string_view rawValue(PileKind kind);
std::optional<PileKind> pileKindFromRawValue(std::string_view rawValue);

std::string_view title(PileKind kind);
std::string_view subtitle(PileKind kind);
/// The plural of what lies in the pile: "installers".
std::string_view noun(PileKind kind);

}  // namespace nookwise
