#include "platform/linux/DiskUsage.h"

#include "platform/linux/FolderEntries.h"
#include "platform/linux/OpenAt.h"

#include <limits>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

class DiskUsage {
  public:
    DiskUsage(int folder, std::size_t mostEntries) : folder_(folder), entriesLeft_(mostEntries) {
        struct statx status {};
        if (statBelow(folder, ".", status)) add(status);
    }

    std::optional<std::int64_t> sum() {
        while (!pending_.empty()) {
            const auto relative = std::move(pending_.back());
            pending_.pop_back();
            if (!addContents(relative)) return std::nullopt;
        }
        return sum_;
    }

  private:
    /// False when there are too many entries.
    bool addContents(const std::string& relative) {
        const auto opened = openBelow(folder_, relative, O_RDONLY | O_DIRECTORY);
        if (!opened || !listing_.read(opened.get(), {})) return true;
        if (listing_.entries().size() > entriesLeft_) return false;
        entriesLeft_ -= listing_.entries().size();
        for (const auto& entry : listing_.entries()) {
            struct statx status {};
            if (!statBelow(opened.get(), entry.name, status) || !isNew(status)) continue;
            add(status);
            if (S_ISDIR(status.stx_mode)) pending_.push_back(relative + "/" + entry.name);
        }
        return true;
    }

    bool isNew(const struct statx& status) {
        if (S_ISDIR(status.stx_mode) || status.stx_nlink < 2) return true;
        return shared_.emplace(status.stx_dev_major, status.stx_dev_minor, status.stx_ino).second;
    }

    void add(const struct statx& status) {
        constexpr std::int64_t blockSize = 512;
        std::int64_t bytes = 0;
        // A file system may claim anything.
        if (__builtin_mul_overflow(status.stx_blocks, blockSize, &bytes) ||
            __builtin_add_overflow(sum_, bytes, &sum_))
            sum_ = std::numeric_limits<std::int64_t>::max();
    }

    int folder_;
    std::size_t entriesLeft_;
    FolderEntries listing_;
    std::vector<std::string> pending_{"."};
    std::set<std::tuple<std::uint32_t, std::uint32_t, std::uint64_t>> shared_;
    std::int64_t sum_ = 0;
};

}  // namespace

std::optional<std::int64_t> diskUsage(int folder, std::size_t mostEntries) {
    return DiskUsage(folder, mostEntries).sum();
}

}  // namespace nookwise
