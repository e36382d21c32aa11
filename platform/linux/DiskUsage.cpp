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
    explicit DiskUsage(int folder) : folder_(folder) {
        struct statx status {};
        if (statBelow(folder, ".", status)) add(status);
    }

    std::int64_t sum() {
        while (!pending_.empty()) {
            const auto relative = std::move(pending_.back());
            pending_.pop_back();
            addContents(relative);
        }
        return sum_;
    }

  private:
    void addContents(const std::string& relative) {
        const auto opened = openBelow(folder_, relative, O_RDONLY | O_DIRECTORY);
        if (!opened || !listing_.read(opened.get(), {})) return;
        for (const auto& entry : listing_.entries()) {
            struct statx status {};
            if (!statBelow(opened.get(), entry.name, status) || !isNew(status)) continue;
            add(status);
            if (S_ISDIR(status.stx_mode)) pending_.push_back(relative + "/" + entry.name);
        }
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
    FolderEntries listing_;
    std::vector<std::string> pending_{"."};
    std::set<std::tuple<std::uint32_t, std::uint32_t, std::uint64_t>> shared_;
    std::int64_t sum_ = 0;
};

}  // namespace

std::int64_t diskUsage(int folder) {
    return DiskUsage(folder).sum();
}

}  // namespace nookwise
