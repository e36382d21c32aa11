#include "app/Library.h"

#include "model/ImageExtensions.h"
#include "model/ScreenshotName.h"
#include "model/SortOrder.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace nookwise {
namespace {

constexpr Seconds recentAge{604'800};  // 7 days

/// A list in the making. Small entries are sorted instead of whole records, because the lists are
/// rebuilt on the UI thread after every action.
class NewestFirst {
  public:
    void add(Date date, std::size_t position) {
        entries_.push_back({date, static_cast<std::uint32_t>(position)});
    }

    bool isEmpty() const { return entries_.empty(); }

    std::vector<FileItem> list(std::span<const FileItem> files) && {
        std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
            return a.date != b.date ? a.date > b.date : a.position < b.position;
        });
        std::vector<FileItem> sorted;
        sorted.reserve(entries_.size());
        for (const auto& entry : entries_) sorted.push_back(files[entry.position]);
        return sorted;
    }

  private:
    struct Entry {
        Date date;
        /// Among the files; makes the sort stable.
        std::uint32_t position;
    };
    std::vector<Entry> entries_;
};

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
        const auto extension = lowercased(file.url.pathExtension());
        if (const auto kind = shelfOf(extension)) {
            shelves[static_cast<std::size_t>(*kind)].add(listedDate(file), i);
        }
        if (arrival > cutOff) recent.add(arrival, i);
        const auto parent = file.url.parentPath();
        if (parent == downloads.path() || parent == desktop.path()) justLanded.add(arrival, i);
        if (isImageExtension(extension) && looksLikeScreenshot(file.url.lastPathComponent())) {
            screenshots.add(arrival, i);
        }
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
