#include "search/EntryReader.h"

#include "model/ScreenshotName.h"
#include "search/DownloadSource.h"
#include "search/IndexCandidates.h"

#include <cstddef>
#include <system_error>
#include <thread>

namespace nookwise {

std::vector<Result<IndexEntry>> EntryReader::read(std::span<const FileItem> files,
                                                  const std::stop_token& stop) const {
    std::vector<Result<IndexEntry>> entries(files.size(), FileError());
    const auto readAt = [&](std::size_t i) { entries[i] = read(files[i], stop); };
    std::vector<std::jthread> helpers;
    std::vector<std::size_t> ours;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (textCarrier(files[i].url) == TextCarrier::none || i + 1 == files.size()) {
            ours.push_back(i);
            continue;
        }
        try {
            helpers.emplace_back(readAt, i);
        } catch (const std::system_error&) {
            // Where the system gives no more threads, there are fewer.
            ours.push_back(i);
        }
    }
    for (const auto i : ours) readAt(i);
    helpers.clear();
    return entries;
}

Result<IndexEntry> EntryReader::read(const FileItem& file, const std::stop_token& stop) const {
    const auto text = this->text(file.url, stop);
    if (!text) return text.error();
    return indexEntry(modificationTime(file), text.value(), source(file.url));
}

Result<std::string> EntryReader::text(const FileUrl& url, const std::stop_token& stop) const {
    switch (textCarrier(url)) {
        case TextCarrier::pdf:
            return reader_.pdf(url, stop);
        case TextCarrier::picture:
            return reader_.ocr(url,
                               looksLikeScreenshot(url.lastPathComponent())
                                   ? RecognitionGrade::accurate
                                   : RecognitionGrade::fast,
                               stop);
        case TextCarrier::none:
            break;
    }
    return std::string();
}

std::optional<SharedBytes> EntryReader::source(const FileUrl& url) const {
    if (!url.isWithin(downloads_)) return std::nullopt;
    const auto name = downloadSource(metadata_.whereFrom(url));
    return name ? std::optional(SharedBytes(*name)) : std::nullopt;
}

}  // namespace nookwise
