#include "app/Library.h"

#include "app/NewestFirst.h"
#include "model/ImageExtensions.h"
#include "model/ScreenshotName.h"
#include "model/SortOrder.h"
#include "platform/Text.h"

#include <array>
#include <utility>

namespace nookwise {
namespace {

constexpr Seconds recentAge{604'800};  // 7 days

/// Nearly every extension is in lower case as it is.
std::optional<ShelfKind> shelfOfAnyCase(std::string_view extension) {
    if (const auto kind = shelfOf(extension)) return kind;
    return shelfOf(lowercased(extension));
}

}  // namespace

Library buildLibrary(std::span<const FileItem> files, const FileUrl& downloads,
                     const FileUrl& desktop, Date now) {
    std::array<NewestFirst, allShelfKinds.size()> shelves;
    NewestFirst recent;
    NewestFirst justLanded;
    NewestFirst screenshots;
    const auto cutOff = now - recentAge;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& file = files[i];
        const auto arrival = arrivalDate(file);
        const auto name = file.url.lastPathComponent();
        const auto extension = extensionOf(name);
        const auto kind = shelfOfAnyCase(extension);
        if (kind) shelves[static_cast<std::size_t>(*kind)].add(listedDate(file), i);
        if (arrival > cutOff) recent.add(arrival, i);
        const auto parent = file.url.parentPath();
        if (parent == downloads.path() || parent == desktop.path()) justLanded.add(arrival, i);
        // Every such image is a picture, which is known already.
        if (kind == ShelfKind::pictures && looksLikeScreenshot(name) &&
            isImageExtension(lowercased(extension)))
            screenshots.add(arrival, i);
    }
    Library library;
    for (const auto kind : allShelfKinds) {
        auto& shelf = shelves[static_cast<std::size_t>(kind)];
        if (!shelf.isEmpty()) library.shelves.emplace(kind, std::move(shelf).list(files));
    }
    library.recent = std::move(recent).list(files);
    library.justLanded = std::move(justLanded).list(files);
    library.screenshots = std::move(screenshots).list(files);
    return library;
}

}  // namespace nookwise
