// A file system whose files are as old, and as large, as was agreed.
#pragma once

#include "platform/FileManager.h"
#include "tools/demo/AgreedFiles.h"

namespace nookwise::demo {

/// Everything is the wrapped file manager's, but for the added dates and allocated sizes of the
/// agreed files. Both arguments must outlive it; `agreed` must not change meanwhile.
class DatedFileManager final : public FileManager {
  public:
    DatedFileManager(FileManager& files, const AgreedFiles& agreed)
        : files_(files), agreed_(agreed) {}

    Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                     const std::function<void(FoundFile&&)>& found,
                                     std::stop_token stop) const override;
    Result<std::vector<FoundFile>> list(const FileUrl& folder, std::stop_token stop) const override;
    using FileManager::attributes;
    Result<FileAttributes> attributes(const FileUrl& url, std::stop_token stop) const override;
    Result<FileUrl> resolved(const FileUrl& url) const override { return files_.resolved(url); }
    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override {
        return files_.open(url);
    }
    Result<VolumeFigures> volumeFigures(const FileUrl& url) const override {
        return files_.volumeFigures(url);
    }
    bool exists(const FileUrl& url) const override { return files_.exists(url); }
    Result<std::monostate> createFolder(const FileUrl& url, FolderAccess access) override {
        return files_.createFolder(url, access);
    }
    using FileManager::move;
    Result<std::monostate> move(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override {
        return files_.move(from, to, watch);
    }
    using FileManager::copy;
    Result<std::monostate> copy(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override {
        return files_.copy(from, to, watch);
    }
    Result<std::optional<FileUrl>> trash(const FileUrl& url) override { return files_.trash(url); }
    using FileManager::replaceContents;
    Result<std::monostate> replaceContents(const FileUrl& url,
                                           const ContentsSource& contents) override {
        return files_.replaceContents(url, contents);
    }
    void removeLeftovers(const std::stop_token& stop) override { files_.removeLeftovers(stop); }

  private:
    void agree(const FileUrl& url, FileAttributes& attributes) const;

    FileManager& files_;
    const AgreedFiles& agreed_;
};

}  // namespace nookwise::demo
