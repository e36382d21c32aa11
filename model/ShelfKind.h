// The library's shelves.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace nookwise {

enum class ShelfKind { pictures, clips, audio, docs, bundles };

inline constexpr std::array allShelfKinds{ShelfKind::pictures, ShelfKind::clips, ShelfKind::audio,
                                          ShelfKind::docs, ShelfKind::bundles};

std::string_view rawValue(ShelfKind kind);

/// The shelf's extensions, lower-case, without the dot. No extension stands on two shelves.
std::span<const std::string_view> exts(ShelfKind kind);

/// The shelf of a lower-case extension without the dot.
std::optional<ShelfKind> shelfOf(std::string_view extension);

/// True for shelves shown as a grid of thumbnails, false for those shown as rows.
bool usesGrid(ShelfKind kind);

}  // namespace nookwise
