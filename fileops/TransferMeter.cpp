#include "fileops/TransferMeter.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

/// None where it would have to be counted.
std::optional<std::int64_t> knownSize(const FileManager& files, const FileUrl& url,
                                      const std::stop_token& stop) {
    const auto attributes = files.attributes(url, stop);
    if (!attributes) return 0;
    switch (attributes.value().type) {
        case FileType::regular:
            return attributes.value().fileSize.value_or(0);
        case FileType::other:
            return 0;
        case FileType::folder:
        case FileType::package:
            break;
    }
    return std::nullopt;
}

}  // namespace

TransferMeter::TransferMeter(const FileManager& files, const std::vector<FileUrl>& urls,
                             const TransferReport& report)
    : files_(files), urls_(urls), report_(report) {
    progress_.filesTotal = urls.size();
}

CopyWatch TransferMeter::watch(const std::stop_token& stop) {
    return {.planned = [this, stop](std::int64_t bytes) { plan(bytes, stop); },
            .copied = [this](std::int64_t bytes) { add(bytes); },
            .stop = stop};
}

void TransferMeter::plan(std::int64_t bytes, const std::stop_token& stop) {
    if (!std::exchange(isAsked_, true)) askSizes(stop);
    if (progress_.bytesTotal) {
        auto& expected = expected_[progress_.filesDone];
        *progress_.bytesTotal = saturatedSum(*progress_.bytesTotal, bytes - expected);
        expected = bytes;
    }
    report();
}

void TransferMeter::askSizes(const std::stop_token& stop) {
    std::vector<std::int64_t> expected(urls_.size());
    std::int64_t total = 0;
    for (auto i = progress_.filesDone + 1; i < urls_.size(); ++i) {
        const auto size = knownSize(files_, urls_[i], stop);
        if (!size) return;
        expected[i] = *size;
        total = saturatedSum(total, *size);
    }
    expected_ = std::move(expected);
    progress_.bytesTotal = total;
}

void TransferMeter::add(std::int64_t bytes) {
    copied_ = saturatedSum(copied_, bytes);
    progress_.bytesDone = saturatedSum(progress_.bytesDone, bytes);
    report();
}

void TransferMeter::fileDone() {
    // More where a name was taken at the last moment and the copy made again, less where it failed
    // or was a rename after all.
    if (progress_.bytesTotal)
        *progress_.bytesTotal =
            saturatedSum(*progress_.bytesTotal, copied_ - expected_[progress_.filesDone]);
    copied_ = 0;
    ++progress_.filesDone;
    report();
}

void TransferMeter::report() {
    auto shown = progress_;
    if (shown.bytesTotal) shown.bytesTotal = std::max(*shown.bytesTotal, shown.bytesDone);
    report_(shown);
}

}  // namespace nookwise
