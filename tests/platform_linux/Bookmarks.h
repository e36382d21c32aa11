// Lists of recently used files as desktops write them.
#pragma once

#include "platform/Date.h"

#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

struct Registration {
    std::string application;
    std::string commandLine;
    Date date;
};

struct Bookmark {
    std::string url;
    std::vector<Registration> registrations;
};

inline std::string isoText(Date date) {
    const double seconds = date.time_since_epoch().count();
    const auto whole = static_cast<std::time_t>(std::floor(seconds));
    std::tm parts{};
    ::gmtime_r(&whole, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    char fraction[16];
    std::snprintf(fraction, sizeof fraction, ".%06dZ",
                  static_cast<int>((seconds - std::floor(seconds)) * 1e6));
    return std::string(text) + fraction;
}

inline std::string bookmarkText(const Bookmark& bookmark) {
    const std::string now = "2024-06-01T10:00:00.000000Z";
    std::string text = "<bookmark href=\"" + bookmark.url + "\" added=\"" + now + "\" modified=\"" +
                       now + "\" visited=\"" + now +
                       R"("><info><metadata owner="http://freedesktop.org">)" +
                       R"(<mime:mime-type type="image/png"/><bookmark:applications>)";
    for (const auto& registration : bookmark.registrations) {
        text += "<bookmark:application name=\"" + registration.application + "\" exec=\"&apos;" +
                registration.commandLine + "&apos;\" modified=\"" + isoText(registration.date) +
                R"(" count="1"/>)";
    }
    return text + "</bookmark:applications></metadata></info></bookmark>";
}

inline std::string bookmarkListText(const std::vector<Bookmark>& bookmarks) {
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?><xbel version="1.0")"
                       R"( xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks")"
                       R"( xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">)";
    for (const auto& bookmark : bookmarks) text += bookmarkText(bookmark);
    return text + "</xbel>";
}

}  // namespace nookwise
