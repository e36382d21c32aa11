// An installed application.
#pragma once

#include "model/HashCombine.h"
#include "platform/Date.h"
#include "platform/FileUrl.h"

#include <functional>
#include <optional>

namespace nookwise {

/// Lists identify it by `url`.
struct AppInfo {
    FileUrl url;
    std::optional<Date> lastUsed;

    friend bool operator==(const AppInfo&, const AppInfo&) = default;
};

}  // namespace nookwise

template <>
struct std::hash<nookwise::AppInfo> {
    std::size_t operator()(const nookwise::AppInfo& app) const noexcept {
        const auto seconds = app.lastUsed ? app.lastUsed->time_since_epoch().count() : 0.0;
        return nookwise::hashOf(app.url, app.lastUsed.has_value(), seconds);
    }
};
