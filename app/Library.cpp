#include "app/Library.h"

#include "model/ImageExtensions.h"
#include "model/ScreenshotName.h"
#include "model/SortOrder.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace nookwise {
namespace {

constexpr Seconds recentAge{604'800};  // 7 days

void sortByArrival(std::vector<FileItem>& files) {
    std::stable_sort(files.begin(), files.end(), [](const FileItem& a, const FileItem& b) {
        return arrivalDate(a) > arrivalDate(b);
    });
}

bool isNamedScreenshot(const FileItem& file, std::string_view lowerExtension) {
    return isImageExtension(lowerExtension) && looksLikeScreenshot(file.url.lastPathComponent());
}

}  // namespace

Library buildLibrary(std::span<const FileItem> files, const FileUrl& downloads,
                     const FileUrl& desktop, Date now) {
    Library library;
    const auto cutOff = now - recentAge;
    for (const auto& file : files) {
        const auto extension = lowercased(file.url.pathExtension());
        if (const auto kind = shelfOf(extension)) library.shelves[*kind].push_back(file);
        if (arrivalDate(file) > cutOff) library.recent.push_back(file);
        const auto parent = file.url.parentPath();
        if (parent == downloads.path() || parent == desktop.path())
            library.justLanded.push_back(file);
        if (isNamedScreenshot(file, extension)) library.screenshots.push_back(file);
    }
    for (auto& [kind, shelf] : library.shelves) shelf = apply(SortOrder::date, std::move(shelf));
    sortByArrival(library.recent);
    sortByArrival(library.justLanded);
    sortByArrival(library.screenshots);
    return library;
}

}  // namespace nookwise
