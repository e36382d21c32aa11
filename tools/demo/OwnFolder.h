// A folder that only this program makes, fills and empties.
#pragma once

#include "platform/FileUrl.h"
#include "platform/Result.h"

namespace nookwise::demo {

/// Holds a marked folder for as long as it lives. Nothing outside it is ever removed, nothing is
/// removed from a folder without the mark, and no link is followed.
class OwnFolder {
  public:
    /// Makes and marks the folder, or takes one that was marked before. Fails with file_exists when
    /// the path is taken by anything else, with device_or_resource_busy while another process holds
    /// the folder.
    static Result<OwnFolder> claim(const FileUrl& folder);

    OwnFolder(OwnFolder&& other) noexcept;
    OwnFolder& operator=(OwnFolder&&) = delete;
    ~OwnFolder();

    const FileUrl& url() const { return folder_; }

    /// Removes what has this name in it, with all that is inside. A link is removed, never what it
    /// leads to.
    Result<std::monostate> remove(std::string_view name) const;

    /// An empty folder of this name in it. What had the name before is removed.
    Result<FileUrl> makeAnew(std::string_view name) const;

  private:
    OwnFolder(FileUrl folder, int mark) : folder_(std::move(folder)), mark_(mark) {}

    FileUrl folder_;
    /// Locked; the lock ends with the descriptor.
    int mark_;
};

}  // namespace nookwise::demo
