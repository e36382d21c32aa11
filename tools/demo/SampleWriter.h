// Puts the files of a sample home in place.
#pragma once

#include "platform/Result.h"
#include "tools/demo/AgreedFiles.h"

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string_view>

namespace nookwise::demo {

/// How long ago something happened to a file.
struct Age {
    int daysSinceAdded = 0;
    /// None: never opened.
    std::optional<int> daysSinceOpened;
};

/// Paths are relative to the home; the folders on the way are made. After a failure the further
/// calls do nothing, and `finish` tells the first one.
class SampleWriter {
  public:
    SampleWriter(FileUrl home, Date now) : home_(std::move(home)), now_(now) {}

    void folder(std::string_view path);
    void write(std::string_view path, const QByteArray& bytes, Age age);
    void copy(std::string_view from, std::string_view to, Age age);

    /// A file that takes `bytes` on the disk. Where the disk has little room, or cannot set room
    /// aside, an empty file is made, and the size is agreed.
    void allocate(std::string_view path, std::int64_t bytes, Age age);

    /// The folder counts as one file of this age.
    void datePackage(std::string_view path, Age age);

    Date now() const { return now_; }
    bool hasFailed() const { return failure_.has_value(); }
    Result<AgreedFiles> finish();

  private:
    FileUrl urlOf(std::string_view path) const;
    /// A new file open for writing; -1 after a failure.
    int create(const FileUrl& url);
    void setModified(int file, Age age) const;
    AgreedAttributes& agree(const FileUrl& url, Age age);
    void fail(const FileUrl& url, std::string_view operation);

    FileUrl home_;
    Date now_;
    AgreedFiles agreed_;
    std::optional<FileError> failure_;
};

}  // namespace nookwise::demo
