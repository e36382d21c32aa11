#include "platform/linux/EntryAttributes.h"

#include "platform/linux/OpenAt.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>

namespace nookwise {
namespace {

// More threads than this wait for the kernel's locks on one folder.
constexpr std::size_t mostThreads = 4;
// What a thread takes at a time: some tenths of a millisecond of work, more than starting it takes.
constexpr std::size_t piece = 512;

FileAttributes listedAttributes(const struct statx& status, std::string_view name) {
    const auto type = typeOf(status);
    if (type != FileType::folder || !namesPackage(name)) return attributesOf(status, type);
    auto attributes = attributesOf(status, FileType::package);
    attributes.allocatedSize = std::nullopt;
    attributes.fileSize = std::nullopt;
    return attributes;
}

/// Shared by the threads, each of which takes the next piece until there is none.
class Examination {
  public:
    Examination(int folder, const FileUrl& url, const std::vector<FolderEntries::Entry>& entries,
                const std::stop_token& stop)
        : folder_(folder), url_(url), entries_(entries), stop_(stop), found_(entries.size()) {}

    std::vector<FoundFile> run() {
        {
            std::vector<std::jthread> helpers;
            startHelpers(helpers);
            examinePieces();
        }
        std::erase_if(found_, [](const FoundFile& file) { return file.url.empty(); });
        return std::move(found_);
    }

  private:
    /// Where the system gives no more threads, the calling one does their work too.
    void startHelpers(std::vector<std::jthread>& helpers) {
        const auto pieces = (entries_.size() + piece - 1) / piece;
        const auto cores = static_cast<std::size_t>(std::thread::hardware_concurrency());
        const auto threads = std::min({cores, mostThreads, pieces});
        try {
            for (std::size_t i = 1; i < threads; ++i) {
                helpers.emplace_back([this] { examinePieces(); });
            }
        } catch (const std::system_error&) {
            return;
        }
    }

    void examinePieces() {
        for (;;) {
            const auto start = next_.fetch_add(piece, std::memory_order_relaxed);
            if (start >= entries_.size()) return;
            const auto end = std::min(start + piece, entries_.size());
            for (auto i = start; i < end; ++i) {
                if (stop_.stop_requested()) return;
                examine(i);
            }
        }
    }

    void examine(std::size_t index) {
        const auto& entry = entries_[index];
        struct statx status {};
        if (!statBelow(folder_, entry.name, status)) return;
        found_[index] = {url_.append(entry.view()), listedAttributes(status, entry.view())};
    }

    const int folder_;
    const FileUrl& url_;
    const std::vector<FolderEntries::Entry>& entries_;
    const std::stop_token& stop_;
    std::vector<FoundFile> found_;
    std::atomic<std::size_t> next_{0};
};

}  // namespace

std::vector<FoundFile> examineEntries(int folder, const FileUrl& url,
                                      const std::vector<FolderEntries::Entry>& entries,
                                      const std::stop_token& stop) {
    return Examination(folder, url, entries, stop).run();
}

}  // namespace nookwise
