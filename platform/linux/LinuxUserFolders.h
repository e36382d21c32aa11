// The user's folders as a Linux desktop names them.
#pragma once

#include "platform/UserFolders.h"
#include "platform/linux/Environment.h"

#include <string_view>

namespace nookwise {

/// A folder that the desktop does not name, or names as the home folder itself, is the one of its
/// English name in the home folder.
class LinuxUserFolders : public UserFolders {
  public:
    explicit LinuxUserFolders(Environment environment = processEnvironment);

    FileUrl home() const override;
    FileUrl desktop() const override;
    FileUrl documents() const override;
    FileUrl downloads() const override;
    /// The first existing folder of what the capture programs are set to, then of the desktop's
    /// usual place.
    std::optional<FileUrl> screenshots() const override;
    std::vector<FileUrl> applications() const override;
    FileUrl applicationSupport() const override;

  private:
    FileUrl userFolder(std::string_view key, std::string_view englishName) const;

    Environment environment_;
};

}  // namespace nookwise
