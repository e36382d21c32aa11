#include "search/IndexBuilder.h"

#include <cstddef>
#include <system_error>

namespace nookwise {
namespace {

constexpr std::size_t batchSize = 256;
// Enough that neither side waits for the other without need.
constexpr std::size_t mostBatches = 16;
// The buckets of a large index count beside its texts, and it is rarely searched by path.
constexpr float entriesPerBucket = 2;

}  // namespace

IndexBuilder::IndexBuilder() {
    entries_.max_load_factor(entriesPerBucket);
    try {
        helper_ = std::jthread([this] { work(); });
    } catch (const std::system_error&) {
        // Where the system gives no more threads, it is done on this one.
    }
}

IndexBuilder::~IndexBuilder() {
    const std::lock_guard lock(mutex_);
    waiting_.clear();
    isEnded_ = true;
    changed_.notify_one();
}

void IndexBuilder::add(FileUrl url, IndexEntry entry) {
    batch_.emplace_back(std::move(url), std::move(entry));
    if (batch_.size() == batchSize) handOver();
}

IndexEntries IndexBuilder::take() {
    handOver();
    if (helper_.joinable()) {
        {
            const std::lock_guard lock(mutex_);
            isEnded_ = true;
        }
        changed_.notify_one();
        helper_.join();
    }
    return std::move(entries_);
}

void IndexBuilder::handOver() {
    auto batch = std::exchange(batch_, {});
    if (!helper_.joinable()) return finish(std::move(batch));
    batch_.reserve(batchSize);
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return waiting_.size() < mostBatches; });
        waiting_.push_back(std::move(batch));
    }
    changed_.notify_one();
}

void IndexBuilder::work() {
    for (bool isEnded = false; !isEnded;) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isEnded_ || !waiting_.empty(); });
        isEnded = isEnded_;
        auto batches = std::exchange(waiting_, {});
        lock.unlock();
        changed_.notify_one();
        for (auto& batch : batches) finish(std::move(batch));
    }
}

void IndexBuilder::finish(Batch&& batch) {
    for (auto& [url, entry] : batch) {
        makeLowerText(entry, lower_);
        entries_.insert_or_assign(std::move(url), std::move(entry));
    }
}

}  // namespace nookwise
