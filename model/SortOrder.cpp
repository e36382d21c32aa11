#include "model/SortOrder.h"

#include "platform/Text.h"

#include <algorithm>
#include <string>
#include <utility>

namespace nookwise {
namespace {

std::vector<FileItem> sortedByName(std::vector<FileItem> files) {
    std::vector<std::pair<std::string, FileItem>> keyed;
    keyed.reserve(files.size());
    for (auto& file : files) {
        auto key = collationKey(file.url.lastPathComponent());
        keyed.emplace_back(std::move(key), std::move(file));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(keyed.begin(), keyed.end(), files.begin(),
                   [](auto& entry) { return std::move(entry.second); });
    return files;
}

}  // namespace

std::string_view rawValue(SortOrder order) {
    static constexpr std::array<std::string_view, allSortOrders.size()> values{"date", "size",
                                                                               "name"};
    return values[static_cast<std::size_t>(order)];
}

Date listedDate(const FileItem& file) {
    return file.lastUsed ? *file.lastUsed : arrivalDate(file);
}

Date arrivalDate(const FileItem& file) {
    return file.added ? *file.added : file.modified.value_or(distantPast);
}

std::vector<FileItem> apply(SortOrder order, std::vector<FileItem> files) {
    switch (order) {
        case SortOrder::date:
            std::stable_sort(files.begin(), files.end(), [](const FileItem& a, const FileItem& b) {
                return listedDate(a) > listedDate(b);
            });
            return files;
        case SortOrder::size:
            std::stable_sort(files.begin(), files.end(),
                             [](const FileItem& a, const FileItem& b) { return a.size > b.size; });
            return files;
        case SortOrder::name:
            return sortedByName(std::move(files));
    }
    return files;
}

}  // namespace nookwise
