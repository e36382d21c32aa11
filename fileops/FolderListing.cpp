#include "fileops/FolderListing.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace nookwise {
namespace {

FolderItem folderItem(FoundFile&& found) {
    const auto& attributes = found.attributes;
    return {.url = std::move(found.url),
            .isFolder = attributes.type == FileType::folder,
            .size = attributes.allocatedSize.value_or(attributes.fileSize.value_or(0)),
            .date = attributes.added ? attributes.added : attributes.modified};
}

/// What an item is sorted by. Small, because sorting moves it about.
struct Place {
    double date;
    std::uint32_t position;
    bool isFolder;
};

bool comesBefore(const Place& a, const Place& b) {
    if (a.isFolder != b.isFolder) return a.isFolder;
    if (a.date != b.date) return a.date > b.date;
    return a.position < b.position;
}

std::vector<FolderItem> sorted(std::vector<FolderItem>&& items) {
    std::vector<Place> places;
    places.reserve(items.size());
    for (const auto& item : items) {
        const auto date = item.date ? item.date->time_since_epoch().count()
                                    : -std::numeric_limits<double>::infinity();
        places.push_back({date, static_cast<std::uint32_t>(places.size()), item.isFolder});
    }
    std::ranges::sort(places, comesBefore);
    std::vector<FolderItem> result;
    result.reserve(items.size());
    for (const auto& place : places) result.push_back(std::move(items[place.position]));
    return result;
}

}  // namespace

std::vector<FolderItem> listFolder(const FileManager& files, const FileUrl& folder,
                                   const std::stop_token& stop) {
    auto listed = files.list(folder, stop);
    if (!listed) return {};
    std::vector<FolderItem> items;
    items.reserve(listed.value().size());
    for (auto& found : listed.value()) {
        if (stop.stop_requested()) return {};
        if (found.attributes.type == FileType::package) {
            const auto whole = files.attributes(found.url, stop);
            if (!whole) continue;
            found.attributes = whole.value();
        }
        items.push_back(folderItem(std::move(found)));
    }
    if (stop.stop_requested()) return {};
    return sorted(std::move(items));
}

}  // namespace nookwise
