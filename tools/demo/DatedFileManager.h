// A file system whose files are as old, and as large, as was agreed.
#pragma once

#include "platform/FileManager.h"
#include "tools/demo/AgreedFiles.h"

namespace nookwise::demo {

/// Everything is the wrapped file manager's, but for the added dates and allocated sizes of the
/// agreed files. Both arguments must outlive it; `agreed` must not change meanwhile.
class DatedFileManager final : public FileManager {
  public:
    DatedFileManager(const FileManager& files, const AgreedFiles& agreed)
        : files_(files), agreed_(agreed) {}

    Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                     const std::function<void(FoundFile&&)>& found,
                                     std::stop_token stop) const override;
    Result<std::vector<FoundFile>> list(const FileUrl& folder, std::stop_token stop) const override;
    Result<FileAttributes> attributes(const FileUrl& url) const override;
    Result<FileUrl> resolved(const FileUrl& url) const override { return files_.resolved(url); }
    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override {
        return files_.open(url);
    }
    Result<VolumeFigures> volumeFigures(const FileUrl& url) const override {
        return files_.volumeFigures(url);
    }

  private:
    void agree(const FileUrl& url, FileAttributes& attributes) const;

    const FileManager& files_;
    const AgreedFiles& agreed_;
};

}  // namespace nookwise::demo
