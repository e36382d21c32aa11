#include "search/IndexCandidates.h"

#include "model/ImageExtensions.h"
#include "model/ScreenshotName.h"
#include "model/SortOrder.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace nookwise {
namespace {

// Icons are smaller than this.
constexpr std::int64_t smallestPicture = 8'001;
constexpr std::int64_t largestPicture = 39'999'999;
constexpr std::int64_t largestPdf = 149'999'999;
constexpr std::size_t mostCandidates = 6'000;

bool isCandidate(const FileItem& file) {
    switch (textCarrier(file.url)) {
        case TextCarrier::picture:
            return file.size >= smallestPicture && file.size <= largestPicture;
        case TextCarrier::pdf:
            return file.size <= largestPdf;
        case TextCarrier::none:
            break;
    }
    return false;
}

/// A file's place among the candidates.
struct Ranked {
    std::size_t position;
    bool isScreenshot;
    Date date;
};

bool comesBefore(const Ranked& a, const Ranked& b) {
    return a.isScreenshot == b.isScreenshot ? a.date > b.date : a.isScreenshot;
}

}  // namespace

TextCarrier textCarrier(const FileUrl& url) {
    const auto extension = lowercased(url.pathExtension());
    if (extension == "pdf") return TextCarrier::pdf;
    return isImageExtension(extension) ? TextCarrier::picture : TextCarrier::none;
}

std::vector<FileItem> filesToRead(std::span<const FileItem> files, const FileUrl& downloads,
                                  const std::function<bool(const FileItem&)>& isKnown) {
    std::vector<Ranked> unread;
    std::vector<std::size_t> downloaded;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& file = files[i];
        const bool isDownloaded = file.url.isWithin(downloads);
        const bool isToBeRead = isCandidate(file);
        if ((!isDownloaded && !isToBeRead) || isKnown(file)) continue;
        if (isDownloaded) downloaded.push_back(i);
        if (isToBeRead)
            unread.push_back({.position = i,
                              .isScreenshot = looksLikeScreenshot(file.url.lastPathComponent()),
                              .date = listedDate(file)});
    }
    std::stable_sort(unread.begin(), unread.end(), comesBefore);
    unread.resize(std::min(unread.size(), mostCandidates), {});

    std::vector<FileItem> work;
    std::vector<bool> isTaken(files.size());
    for (const auto& candidate : unread) {
        work.push_back(files[candidate.position]);
        isTaken[candidate.position] = true;
    }
    for (const auto position : downloaded) {
        if (!isTaken[position]) work.push_back(files[position]);
    }
    return work;
}

}  // namespace nookwise
