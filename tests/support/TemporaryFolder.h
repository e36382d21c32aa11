// A folder of real files that ends with the test.
#pragma once

#include "platform/FileUrl.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include <stdlib.h>
#include <sys/stat.h>

namespace nookwise {

/// Removing it follows no link and takes folders along that a test closed.
class TemporaryFolder {
  public:
    explicit TemporaryFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        std::string name = parent / "nookwise-test-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = std::filesystem::canonical(name);
        // Tests that become another user must reach it.
        ::chmod(path_.c_str(), 0755);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        openFolders(path_);
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    FileUrl url() const { return FileUrl(path_.native()); }
    FileUrl url(std::string_view relative) const { return url().append(relative); }
    const std::filesystem::path& path() const { return path_; }
    std::string path(std::string_view relative) const { return path_ / relative; }

    /// Makes the file, or replaces its contents, and the folders above it.
    FileUrl write(std::string_view relative, std::string_view contents) const {
        const auto file = path_ / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream.write(contents.data(), static_cast<std::streamsize>(contents.size()));
        if (!stream.flush()) throw std::runtime_error("cannot write a test's file");
        return url(relative);
    }

    FileUrl makeFolder(std::string_view relative) const {
        std::filesystem::create_directories(path_ / relative);
        return url(relative);
    }

    FileUrl makePipe(std::string_view relative) const {
        if (::mkfifo(path(relative).c_str(), 0644) != 0) throw std::runtime_error("no pipe");
        return url(relative);
    }

  private:
    static void openFolders(const std::filesystem::path& folder) {
        std::error_code ignored;
        for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
            if (entry.is_symlink(ignored) || !entry.is_directory(ignored)) continue;
            std::filesystem::permissions(entry, std::filesystem::perms::owner_all, ignored);
            openFolders(entry);
        }
    }

    std::filesystem::path path_;
};

}  // namespace nookwise
