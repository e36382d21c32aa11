// The desktop's list of recently used files.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"
#include "platform/Guarded.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

#include <sys/stat.h>

namespace nookwise {

/// When each file was last registered by an application that opens files; those that merely write
/// them are left out. `text` is what recently-used.xbel holds; text that is no such list as a
/// whole gives nothing.
std::unordered_map<FileUrl, Date> openingsIn(std::string_view text);

/// Reads the list when it is first asked, and anew when the file has changed. May be used from any
/// thread.
class RecentlyUsed {
  public:
    explicit RecentlyUsed(FileUrl list);

    std::optional<Date> lastOpening(const FileUrl& url) const;

  private:
    /// Tells one state of the list's file from another.
    struct Version {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t size = 0;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;

        friend bool operator==(const Version&, const Version&) = default;
    };

    struct Openings {
        std::optional<Version> version;
        std::unordered_map<FileUrl, Date> dates;
    };

    static std::optional<Version> currentVersion(const FileUrl& list);
    static Version versionOf(const struct stat& status);
    void read(Openings& openings) const;

    FileUrl list_;
    mutable Guarded<Openings> openings_;
};

}  // namespace nookwise
