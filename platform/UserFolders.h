// Where the user's folders are.
#pragma once

#include "platform/FileUrl.h"

#include <optional>
#include <vector>

namespace nookwise {

/// Each call reads the user's settings anew. All operations may be called from any thread.
class UserFolders {
  public:
    virtual ~UserFolders() = default;

    virtual FileUrl home() const = 0;
    virtual FileUrl desktop() const = 0;
    virtual FileUrl documents() const = 0;
    virtual FileUrl downloads() const = 0;
    /// Where the user's screenshots are saved, when that is known.
    virtual std::optional<FileUrl> screenshots() const = 0;
    /// Folders whose entries may be application bundles, the least specific first.
    virtual std::vector<FileUrl> applications() const = 0;
    /// Where the application keeps its own files. Not created by asking.
    virtual FileUrl applicationSupport() const = 0;
};

}  // namespace nookwise
