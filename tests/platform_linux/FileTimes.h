// A file's times, as the tests see and set them.
#pragma once

#include "platform/Date.h"
#include "platform/FileUrl.h"

#include <cmath>
#include <optional>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

namespace nookwise {

inline Date dateOf(const struct statx_timestamp& time) {
    return Date{Seconds{static_cast<double>(time.tv_sec) + time.tv_nsec / 1e9}};
}

inline struct statx statusOf(const FileUrl& url) {
    struct statx status {};
    ::statx(AT_FDCWD, std::string(url.path()).c_str(), AT_SYMLINK_NOFOLLOW,
            STATX_BASIC_STATS | STATX_BTIME, &status);
    return status;
}

/// None where the file system keeps none.
inline std::optional<Date> birthOf(const FileUrl& url) {
    const auto status = statusOf(url);
    if ((status.stx_mask & STATX_BTIME) == 0) return std::nullopt;
    return dateOf(status.stx_btime);
}

inline Date accessOf(const FileUrl& url) {
    return dateOf(statusOf(url).stx_atime);
}

inline timespec timespecOf(Date date) {
    const double seconds = date.time_since_epoch().count();
    const double whole = std::floor(seconds);
    return {static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
}

inline bool setTimes(const FileUrl& url, Date access, Date modified) {
    const timespec times[2] = {timespecOf(access), timespecOf(modified)};
    return ::utimensat(AT_FDCWD, std::string(url.path()).c_str(), times, AT_SYMLINK_NOFOLLOW) == 0;
}

}  // namespace nookwise
