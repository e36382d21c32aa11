// What the desktop knows about a file beyond the file system's own attributes.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"

#include <optional>
#include <string>
#include <vector>

namespace nookwise {

/// All operations may be called from any thread. What is missing or unreadable reads as none.
class Metadata {
  public:
    virtual ~Metadata() = default;

    /// When a person last opened the file. Being written, scanned or indexed is not an opening.
    virtual std::optional<Date> lastUsed(const FileUrl& url) const = 0;

    /// True when the file itself says that it is a capture of the screen.
    virtual bool isScreenCapture(const FileUrl& url) const = 0;

    /// The addresses the file was fetched from, the most recent one last.
    virtual std::vector<std::string> whereFrom(const FileUrl& url) const = 0;
};

}  // namespace nookwise
