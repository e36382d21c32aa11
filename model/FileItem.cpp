#include "model/FileItem.h"

#include "model/HashCombine.h"

std::size_t std::hash<nookwise::FileItem>::operator()(
    const nookwise::FileItem& item) const noexcept {
    const auto seconds = [](const std::optional<nookwise::Date>& date) {
        return date ? std::optional<double>(date->time_since_epoch().count()) : std::nullopt;
    };
    return nookwise::hashOf(item.url, item.size, seconds(item.modified), seconds(item.added),
                            seconds(item.lastUsed));
}
