// The applications that a Linux desktop knows.
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/Environment.h"

#include <vector>

namespace nookwise {

/// The folders that hold desktop entries, the most important first: the user's, the system's, and
/// those that Flatpak and Snap export to, which not every shell has in its environment.
std::vector<FileUrl> desktopEntryFolders(const BaseFolders& base);

class LinuxWorkspace : public Workspace {
  public:
    explicit LinuxWorkspace(std::vector<FileUrl> desktopEntryFolders);

    /// The names are in the user's language. Of entries of the same id in several folders only the
    /// one in the first folder counts, also when it hides the application.
    std::vector<InstalledApplication> applications(std::stop_token stop) const override;

    /// Needs the Qt event loop.
    void reveal(const std::vector<FileUrl>& urls) override;
    void open(const FileUrl& url) override;

  private:
    std::vector<FileUrl> desktopEntryFolders_;
};

}  // namespace nookwise
