#include "tests/support/FailingFileManager.h"

#include <utility>

namespace nookwise {
namespace {

FileError ioError(const FileUrl& url, std::string operation) {
    return {std::make_error_code(std::errc::io_error), url, std::move(operation)};
}

}  // namespace

class FailingFileManager::Reader : public FileReader {
  public:
    Reader(const FailingFileManager& files, std::unique_ptr<FileReader> inner, FileUrl url)
        : files_(files), inner_(std::move(inner)), url_(std::move(url)) {}

    Result<State> state() const override {
        if (files_.isTheFailingOne()) return ioError(url_, "state");
        return inner_->state();
    }

    Result<std::size_t> read(std::span<std::byte> buffer) override {
        if (files_.isTheFailingOne()) return ioError(url_, "read");
        return inner_->read(buffer);
    }

  private:
    const FailingFileManager& files_;
    std::unique_ptr<FileReader> inner_;
    FileUrl url_;
};

Result<std::monostate> FailingFileManager::enumerate(const FileUrl& root,
                                                     const EnumerationRules& rules,
                                                     const std::function<void(FoundFile&&)>& found,
                                                     std::stop_token stop) const {
    if (isTheFailingOne()) return ioError(root, "list");
    const auto foundUnlessFailing = [&](FoundFile&& file) {
        if (!isTheFailingOne()) found(std::move(file));
    };
    return inner_.enumerate(root, rules, foundUnlessFailing, std::move(stop));
}

Result<std::vector<FoundFile>> FailingFileManager::list(const FileUrl& folder,
                                                        std::stop_token stop) const {
    if (isTheFailingOne()) return ioError(folder, "list");
    return inner_.list(folder, std::move(stop));
}

Result<FileAttributes> FailingFileManager::attributes(const FileUrl& url,
                                                      std::stop_token stop) const {
    if (isTheFailingOne()) return ioError(url, "attributes");
    return inner_.attributes(url, std::move(stop));
}

Result<FileUrl> FailingFileManager::resolved(const FileUrl& url) const {
    if (isTheFailingOne()) return ioError(url, "resolve");
    return inner_.resolved(url);
}

Result<std::unique_ptr<FileReader>> FailingFileManager::open(const FileUrl& url) const {
    if (isTheFailingOne()) return ioError(url, "open");
    auto opened = inner_.open(url);
    if (!opened) return opened;
    return std::unique_ptr<FileReader>(
        std::make_unique<Reader>(*this, std::move(opened.value()), url));
}

Result<VolumeFigures> FailingFileManager::volumeFigures(const FileUrl& url) const {
    if (isTheFailingOne()) return ioError(url, "volume figures");
    return inner_.volumeFigures(url);
}

bool FailingFileManager::exists(const FileUrl& url) const {
    return !isTheFailingOne() && inner_.exists(url);
}

Result<std::monostate> FailingFileManager::createFolder(const FileUrl& url, FolderAccess access) {
    if (isTheFailingOne()) return ioError(url, "create");
    return inner_.createFolder(url, access);
}

Result<std::monostate> FailingFileManager::move(const FileUrl& from, const FileUrl& to,
                                                const CopyWatch& watch) {
    if (isTheFailingOne()) return ioError(from, "move");
    return inner_.move(from, to, watch);
}

Result<std::monostate> FailingFileManager::copy(const FileUrl& from, const FileUrl& to,
                                                const CopyWatch& watch) {
    if (isTheFailingOne()) return ioError(from, "copy");
    return inner_.copy(from, to, watch);
}

Result<std::optional<FileUrl>> FailingFileManager::trash(const FileUrl& url) {
    if (isTheFailingOne()) return ioError(url, "trash");
    return inner_.trash(url);
}

Result<std::monostate> FailingFileManager::replaceContents(const FileUrl& url,
                                                           const ContentsSource& contents) {
    if (isTheFailingOne()) return ioError(url, "write");
    bool isWritten = true;
    const auto unlessFailing = [&](const ContentsSink& sink) {
        const auto write = [&](std::string_view bytes) {
            isWritten = isWritten && !isTheFailingOne() && sink(bytes);
            return isWritten;
        };
        return contents(write) && isWritten;
    };
    auto replaced = inner_.replaceContents(url, unlessFailing);
    if (!isWritten) return ioError(url, "write");
    return replaced;
}

void FailingFileManager::removeLeftovers(const std::stop_token& stop) {
    if (!isTheFailingOne()) inner_.removeLeftovers(stop);
}

}  // namespace nookwise
