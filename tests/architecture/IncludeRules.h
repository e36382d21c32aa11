// Which folder of the repository may include which.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace nookwise {

/// The includes that point the wrong way in the tree at `root`, each as "path/to/File.h:12:
/// <what>", in the order of paths and lines. Folders that are no room of the architecture are left
/// out.
std::vector<std::string> wrongIncludes(const std::filesystem::path& root);

/// How many C++ files of the tree stand under a rule.
std::size_t filesUnderARule(const std::filesystem::path& root);

}  // namespace nookwise
