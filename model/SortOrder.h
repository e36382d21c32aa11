// The orders in which the library lists files.
#pragma once

#include "model/FileItem.h"

#include <array>
#include <string_view>
#include <vector>

namespace nookwise {

enum class SortOrder { date, size, name };

inline constexpr std::array allSortOrders{SortOrder::date, SortOrder::size, SortOrder::name};

std::string_view rawValue(SortOrder order);

/// The date that a file is listed under: last used, else added, else modified, else the distant
/// past.
Date listedDate(const FileItem& file);

/// When a file arrived: added, else modified, else the distant past.
Date arrivalDate(const FileItem& file);

/// The files sorted stably: by listed date with the newest first, by size with the largest first,
/// or by name as the user's file viewer sorts names.
std::vector<FileItem> apply(SortOrder order, std::vector<FileItem> files);

}  // namespace nookwise
