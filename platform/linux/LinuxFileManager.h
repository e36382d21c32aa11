// The file manager over the kernel's own calls.
#pragma once

#include "platform/FileManager.h"
#include "platform/linux/Trash.h"
#include "platform/linux/Unfinished.h"

namespace nookwise {

class LinuxFileManager final : public FileManager {
  public:
    /// Over the Trash and the data folder of this process's environment.
    LinuxFileManager();
    /// `dataHome` holds the home Trash and the application's own folder.
    explicit LinuxFileManager(const FileUrl& dataHome);

    Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                     const std::function<void(FoundFile&&)>& found,
                                     std::stop_token stop) const override;
    Result<std::vector<FoundFile>> list(const FileUrl& folder, std::stop_token stop) const override;
    using FileManager::attributes;
    Result<FileAttributes> attributes(const FileUrl& url, std::stop_token stop) const override;
    Result<FileUrl> resolved(const FileUrl& url) const override;
    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override;
    Result<VolumeFigures> volumeFigures(const FileUrl& url) const override;
    bool exists(const FileUrl& url) const override;

    // What changes files (LinuxFileChanges.cpp).
    Result<std::monostate> createFolder(const FileUrl& url, FolderAccess access) override;
    using FileManager::move;
    Result<std::monostate> move(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override;
    using FileManager::copy;
    Result<std::monostate> copy(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override;
    Result<std::optional<FileUrl>> trash(const FileUrl& url) override;
    using FileManager::replaceContents;
    Result<std::monostate> replaceContents(const FileUrl& url,
                                           const ContentsSource& contents) override;
    void removeLeftovers(const std::stop_token& stop) override;

  private:
    FileUrl ownFolder_;
    Trash trash_;
    Unfinished unfinished_;
};

}  // namespace nookwise
