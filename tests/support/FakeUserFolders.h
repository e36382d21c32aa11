// A home that need not exist.
#pragma once

#include "platform/UserFolders.h"

namespace nookwise {

/// The folders of /home/user under their usual names, until a test moves them.
class FakeUserFolders : public UserFolders {
  public:
    FileUrl home() const override { return homeFolder; }
    FileUrl desktop() const override { return desktopFolder; }
    FileUrl documents() const override { return documentsFolder; }
    FileUrl downloads() const override { return downloadsFolder; }
    std::optional<FileUrl> screenshots() const override { return screenshotFolder; }
    std::vector<FileUrl> applications() const override { return applicationFolders; }
    FileUrl applicationSupport() const override { return applicationSupportFolder; }

    FileUrl homeFolder{"/home/user"};
    FileUrl desktopFolder{"/home/user/Desktop"};
    FileUrl documentsFolder{"/home/user/Documents"};
    FileUrl downloadsFolder{"/home/user/Downloads"};
    std::optional<FileUrl> screenshotFolder;
    std::vector<FileUrl> applicationFolders{FileUrl("/Applications"),
                                            FileUrl("/Applications/Utilities"),
                                            FileUrl("/home/user/Applications")};
    FileUrl applicationSupportFolder{"/home/user/.local/share/Nookwise"};
};

}  // namespace nookwise
