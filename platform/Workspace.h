// The desktop around the application.
#pragma once

#include "platform/FileUrl.h"

#include <stop_token>
#include <string>
#include <vector>

namespace nookwise {

/// An application that the desktop offers to the user.
struct InstalledApplication {
    /// The name shown to the user, UTF-8.
    std::string name;
    /// The desktop entry or the bundle.
    FileUrl url;

    friend bool operator==(const InstalledApplication&, const InstalledApplication&) = default;
};

/// All operations may be called from any thread unless they say otherwise.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// The applications registered with the desktop, without those it hides. Bundles that merely
    /// lie in a folder are not among them. Ordered by URL. After a stop request it returns soon
    /// with some of them.
    virtual std::vector<InstalledApplication> applications(std::stop_token stop) const = 0;

    /// Opens the file viewer on these files, selected. Returns at once; what is no longer there is
    /// not looked for. UI thread only.
    virtual void reveal(const std::vector<FileUrl>& urls) = 0;

    /// Opens a file with the user's own program for it; where there is none, reveals it. Never runs
    /// the file itself. UI thread only.
    virtual void open(const FileUrl& url) = 0;
};

}  // namespace nookwise
