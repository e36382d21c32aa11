// The file manager over the kernel's own calls.
#pragma once

#include "platform/FileManager.h"

namespace nookwise {

class LinuxFileManager final : public FileManager {
  public:
    Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                     const std::function<void(FoundFile&&)>& found,
                                     std::stop_token stop) const override;
    Result<std::vector<FoundFile>> list(const FileUrl& folder, std::stop_token stop) const override;
    Result<FileAttributes> attributes(const FileUrl& url) const override;
    Result<FileUrl> resolved(const FileUrl& url) const override;
    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override;
    Result<VolumeFigures> volumeFigures(const FileUrl& url) const override;
};

}  // namespace nookwise
