// All that can be told of a file or a tree, to compare it with another.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace nookwise {

/// A line for each entry, by its path below the root: type, permissions, owner, time of the last
/// modification, bytes or where it leads, extended attributes, and how many names it has.
std::map<std::string, std::string> snapshot(const std::filesystem::path& root);

/// The names in a folder, hidden ones included, in order.
std::string names(const std::filesystem::path& folder);

/// The bytes of a file.
std::string contents(const std::filesystem::path& file);

}  // namespace nookwise
