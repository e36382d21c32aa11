// A file manager on which one operation fails.
#pragma once

#include "platform/FileManager.h"

#include <atomic>

namespace nookwise {

/// Passes everything on to another file manager, except that the n-th operation fails with an I/O
/// error. Each call, each file that an enumeration comes upon, each question to and read from an
/// open file, and each piece of contents that are written count as one operation. A file whose turn
/// it is in an enumeration is left out, as an unreadable one is.
class FailingFileManager : public FileManager {
  public:
    /// `failingOperation` counts from 1; 0 lets everything pass, to learn how many operations there
    /// are.
    FailingFileManager(FileManager& inner, int failingOperation)
        : inner_(inner), failingOperation_(failingOperation) {}

    int operations() const { return operations_; }

    Result<std::monostate> enumerate(const FileUrl& root, const EnumerationRules& rules,
                                     const std::function<void(FoundFile&&)>& found,
                                     std::stop_token stop) const override;
    Result<std::vector<FoundFile>> list(const FileUrl& folder, std::stop_token stop) const override;
    using FileManager::attributes;
    Result<FileAttributes> attributes(const FileUrl& url, std::stop_token stop) const override;
    Result<FileUrl> resolved(const FileUrl& url) const override;
    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override;
    Result<VolumeFigures> volumeFigures(const FileUrl& url) const override;
    /// Fails as a file does that cannot be looked at: it counts as missing.
    bool exists(const FileUrl& url) const override;
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
    class Reader;

    bool isTheFailingOne() const { return ++operations_ == failingOperation_; }

    FileManager& inner_;
    const int failingOperation_;
    mutable std::atomic<int> operations_{0};
};

}  // namespace nookwise
