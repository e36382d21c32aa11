// One Trash: a folder with the trashed files, their descriptions and the list of folder sizes.
#pragma once

#include "platform/FileUrl.h"
#include "platform/linux/OpenAt.h"
#include "platform/linux/ResolvedFolder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

enum class MissingFolders { make, leave };

/// Tells what this run writes from what earlier ones left.
struct TrashRun {
    /// Stands in its descriptions.
    std::string mark;
    /// Nanoseconds since 1970 by the clock that file systems take their times from.
    std::int64_t started;
};

/// An open Trash. Names in it are single path components. Where a call fails, errno tells why.
class TrashFolder {
  public:
    /// `url` is what the folder's contents are named by. None where it has no folders for files and
    /// descriptions, or links in their place.
    static std::optional<TrashFolder> open(ResolvedFolder folder, FileUrl url,
                                           MissingFolders missing);

    struct Item {
        /// Open.
        int folder;
        std::string name;
        /// Where it is put back to.
        std::string_view recordedPath;
    };

    /// Moves something here and returns its name here. Fails with EXDEV where a copy would be
    /// needed. After a failure nothing was moved and no description is left.
    std::optional<std::string> put(const Item& item, std::string_view run) const;

    /// Removes the description and the size of what had this name, unless something still has it.
    void forget(const std::string& name) const;

    /// Removes descriptions that other runs than `run` wrote before it started for files that never
    /// came, and unfinished descriptions and lists of sizes. Both runs may be at work meanwhile.
    void removeLeftovers(const TrashRun& run) const;

    const FileUrl& url() const { return url_; }
    /// Without links on the way.
    const FileUrl& realUrl() const { return trash_.url; }

  private:
    TrashFolder(ResolvedFolder trash, FileUrl url, FileDescriptor files, FileDescriptor info);

    bool isTaken(const std::string& name) const;
    void recordSizeOfFolder(const std::string& name) const;
    void removeInfo(const std::string& name) const;
    bool isLeftover(std::string_view fileInInfo, const TrashRun& run) const;

    ResolvedFolder trash_;
    FileUrl url_;
    FileDescriptor files_;
    FileDescriptor info_;
};

/// Opens the folder `name` in the open folder `parent`, a real one and no link, or makes it for its
/// owner alone. None with errno set.
FileDescriptor openFolderIn(int parent, const char* name, MissingFolders missing);

}  // namespace nookwise
