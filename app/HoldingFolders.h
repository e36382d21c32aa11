// Which of many folders holds a file.
#pragma once

#include "platform/FileUrl.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace nookwise {

/// Asked about a hundred thousand files within a frame, best folder by folder. What was added and
/// what is asked about must outlive it. Compares paths byte by byte.
class HoldingFolders {
  public:
    void add(const FileUrl& folder);

    /// The folder that has this path itself; null when none has it.
    const FileUrl* find(std::string_view path) const;

    /// The innermost of the folders that `path` lies below; null when there is none.
    const FileUrl* holding(std::string_view path);

  private:
    const FileUrl* innermost(std::string_view folder) const;

    std::unordered_map<std::string_view, const FileUrl*> folders_;
    /// What the paths of all folders begin with.
    std::string_view beginning_;
    /// Whether a folder's path has so many bytes.
    std::vector<bool> lengths_;
    /// The answer before: files of one folder mostly follow one another.
    std::string_view lastFolder_;
    const FileUrl* lastAnswer_ = nullptr;
};

}  // namespace nookwise
