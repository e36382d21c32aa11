// Folder trees to measure on, the same at every run.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace nookwise::bench {

/// A folder that is removed at the end.
class WorkFolder {
  public:
    /// Below $NOOKWISE_BENCH_DIR or, without it, /var/tmp: a real disk.
    WorkFolder();
    explicit WorkFolder(const std::filesystem::path& parent);
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// Fills Desktop, Documents and Downloads below `home` with `files` small and empty files in
/// `folders` folders of the depth that real homes have. No folder is hidden and none is a software
/// project.
void makeDeepHome(const std::filesystem::path& home, int files, int folders);

struct CopiesHome {
    int files = 0;
    std::int64_t bytes = 0;
    /// The paths of identical files of 64 KiB and more with a listed extension, each group sorted,
    /// the groups sorted too.
    std::vector<std::vector<std::string>> groups;
};

/// Fills the three folders with `files` files of `bytes` bytes together, sizes from 200 bytes to
/// some hundred megabytes, a quarter of them copies of others, some alike for their first 64 KiB
/// only.
CopiesHome makeCopiesHome(const std::filesystem::path& home, int files, std::int64_t bytes);

}  // namespace nookwise::bench
