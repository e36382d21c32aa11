// What a Linux desktop and the files themselves tell about how files are used.
#pragma once

#include "platform/Metadata.h"
#include "platform/linux/Environment.h"
#include "platform/linux/RecentlyUsed.h"

namespace nookwise {

class LinuxMetadata : public Metadata {
  public:
    explicit LinuxMetadata(const BaseFolders& folders);

    /// An application's entry in the desktop's list of recently used files, unless it is as old as
    /// the file: that one tells of the writing, or of another file that had the name. Else the
    /// access time, of a regular file where the mount keeps it, when it is later than the file's
    /// birth.
    std::optional<Date> lastUsed(const FileUrl& url) const override;

    /// Knows PNG pictures only, by the program that they name as theirs.
    bool isScreenCapture(const FileUrl& url) const override;

    std::vector<std::string> whereFrom(const FileUrl& url) const override;

  private:
    RecentlyUsed recentlyUsed_;
};

}  // namespace nookwise
