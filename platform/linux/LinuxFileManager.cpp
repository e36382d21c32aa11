#include "platform/linux/LinuxFileManager.h"

#include "platform/linux/EntryAttributes.h"
#include "platform/linux/Enumeration.h"
#include "platform/linux/Failure.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/OpenAt.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace nookwise {
namespace {

double seconds(const timespec& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

class DescriptorReader final : public FileReader {
  public:
    DescriptorReader(FileDescriptor file, FileUrl url)
        : file_(std::move(file)), url_(std::move(url)) {}

    Result<State> state() const override {
        struct stat status {};
        if (::fstat(file_.get(), &status) != 0) return failure(url_, "examine");
        return State{.identity = {.device = status.st_dev, .inode = status.st_ino},
                     .linkCount = status.st_nlink,
                     .size = status.st_size,
                     .modified = Date(Seconds(seconds(status.st_mtim)))};
    }

    Result<std::size_t> read(std::span<std::byte> buffer) override {
        std::size_t filled = 0;
        while (filled < buffer.size()) {
            const auto count = ::read(file_.get(), buffer.data() + filled, buffer.size() - filled);
            if (count == 0) break;
            if (count > 0) {
                filled += static_cast<std::size_t>(count);
            } else if (errno != EINTR) {
                return failure(url_, "read");
            }
        }
        return filled;
    }

  private:
    FileDescriptor file_;
    FileUrl url_;
};

FileAttributes withPackageContents(const struct statx& status, const FileUrl& url,
                                   const std::stop_token& stop) {
    const auto type = typeOf(status);
    if (type != FileType::folder || !namesPackage(url.lastPathComponent()))
        return attributesOf(status, type);
    auto attributes = attributesOf(status, FileType::package);
    const auto folder = openPath(url.path(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    const auto contents = folder ? packageContents(folder.get(), stop) : PackageContents{};
    attributes.allocatedSize = contents.allocatedSize;
    attributes.fileSize = contents.fileSize;
    return attributes;
}

}  // namespace

Result<std::monostate> LinuxFileManager::enumerate(const FileUrl& root,
                                                   const EnumerationRules& rules,
                                                   const std::function<void(FoundFile&&)>& found,
                                                   std::stop_token stop) const {
    const auto folder = openPath(root.path(), O_RDONLY | O_DIRECTORY);
    if (!folder) return failure(root, "list");
    enumerateTree(folder, root, rules, found, stop);
    return std::monostate{};
}

Result<std::vector<FoundFile>> LinuxFileManager::list(const FileUrl& folder,
                                                      std::stop_token stop) const {
    const auto opened = openPath(folder.path(), O_RDONLY | O_DIRECTORY);
    FolderEntries listing;
    if (!opened || !listing.read(opened.get(), stop)) return failure(folder, "list");
    if (!listing.keepVisibleSorted(stop)) return failure(folder, "list", ECANCELED);
    auto entries = examineEntries(opened.get(), folder, listing.entries(), stop);
    if (stop.stop_requested()) return failure(folder, "list", ECANCELED);
    return entries;
}

Result<FileAttributes> LinuxFileManager::attributes(const FileUrl& url,
                                                    std::stop_token stop) const {
    struct statx status {};
    if (!statPath(url.path(), status)) return failure(url, "examine");
    const auto attributes = withPackageContents(status, url, stop);
    if (stop.stop_requested()) return failure(url, "examine", ECANCELED);
    return attributes;
}

Result<FileUrl> LinuxFileManager::resolved(const FileUrl& url) const {
    const std::string path(url.path());
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    if (real == nullptr) return failure(url, "resolve");
    return FileUrl(real.get());
}

Result<std::unique_ptr<FileReader>> LinuxFileManager::open(const FileUrl& url) const {
    // Looked at before it is opened, because opening a device can do things, and again after,
    // because it may have been replaced.
    struct statx before {};
    if (!statPath(url.path(), before)) return failure(url, "open");
    if (!S_ISREG(before.stx_mode)) return failure(url, "open", EINVAL);
    auto file = openPath(url.path(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
    if (!file) return failure(url, "open");
    struct stat after {};
    if (::fstat(file.get(), &after) != 0) return failure(url, "open");
    if (!S_ISREG(after.st_mode)) return failure(url, "open", EINVAL);
    return std::unique_ptr<FileReader>(std::make_unique<DescriptorReader>(std::move(file), url));
}

Result<VolumeFigures> LinuxFileManager::volumeFigures(const FileUrl& url) const {
    struct statvfs figures {};
    if (::statvfs(std::string(url.path()).c_str(), &figures) != 0) return failure(url, "examine");
    const auto inBytes = [&](fsblkcnt_t blocks) {
        return static_cast<std::int64_t>(blocks * figures.f_frsize);
    };
    return VolumeFigures{.availableBytes = inBytes(figures.f_bavail),
                         .totalBytes = inBytes(figures.f_blocks)};
}

bool LinuxFileManager::exists(const FileUrl& url) const {
    struct statx status {};
    return statPath(url.path(), status);
}

}  // namespace nookwise
