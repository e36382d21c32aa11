// Reads the user's folders and sorts what it finds into piles.
#pragma once

#include "model/Scan.h"
#include "platform/Clock.h"
#include "platform/FileManager.h"
#include "platform/Metadata.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"

#include <functional>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace nookwise {

/// Holds references only; what they refer to must outlive it. Keeps nothing between scans.
class Scanner {
  public:
    struct Root {
        /// As shown to the user, whatever the folder is called on disk.
        std::string name;
        FileUrl url;
    };

    using Progress = std::function<void(const ScanProgress&)>;

    Scanner(const FileManager& files, const Metadata& metadata, const UserFolders& folders,
            const Workspace& workspace, const Clock& clock)
        : files_(files),
          metadata_(metadata),
          folders_(folders),
          workspace_(workspace),
          clock_(clock) {}

    /// One whole scan on the calling thread. `progress` is called on that thread too. After a stop
    /// request it returns within 100 ms, with a result that is good for nothing.
    ScanResult runBlocking(const Progress& progress, std::stop_token stop) const;

    /// Desktop, Documents and Downloads, in the order in which they are read.
    std::vector<Root> roots() const;

  private:
    const FileManager& files_;
    const Metadata& metadata_;
    const UserFolders& folders_;
    const Workspace& workspace_;
    const Clock& clock_;
};

}  // namespace nookwise
