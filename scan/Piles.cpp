#include "scan/Piles.h"

#include "model/Fmt.h"
#include "model/ScreenshotName.h"
#include "model/SortOrder.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace nookwise {
namespace {

constexpr Seconds installerGrace{1'209'600};  // 14 days
constexpr Seconds screenshotAge{2'592'000};   // 30 days
constexpr Seconds forgottenAge{7'776'000};    // 90 days
constexpr std::int64_t largestOrdinarySize = 499'999'999;
constexpr int recentlyOpenedMonths = 2;

constexpr std::array<std::string_view, 4> installerExts{"dmg", "pkg", "mpkg", "xip"};
constexpr std::array<std::string_view, 7> imageExts{"png",  "jpg", "jpeg", "heic",
                                                    "tiff", "gif", "webp"};

template <std::size_t count>
bool hasExtension(const FileItem& file, const std::array<std::string_view, count>& exts) {
    return std::find(exts.begin(), exts.end(), lowercased(file.url.pathExtension())) != exts.end();
}

std::optional<Date> arrival(const FileItem& file) {
    return file.added ? file.added : file.modified;
}

void sortLargestFirst(std::vector<SweepItem>& pile) {
    std::stable_sort(pile.begin(), pile.end(), [](const SweepItem& a, const SweepItem& b) {
        return a.file.size > b.file.size;
    });
}

bool isOldScreenshot(const FileItem& file, const Metadata& metadata, Date now) {
    // The metadata are asked last: reading them costs more than all the rest.
    return hasExtension(file, imageExts) && arrival(file).value_or(now) < now - screenshotAge &&
           (looksLikeScreenshot(file.url.lastPathComponent()) ||
            metadata.isScreenCapture(file.url));
}

}  // namespace

std::vector<SweepItem> installersPile(std::span<const FileItem> downloads,
                                      std::span<const FileItem> desktop,
                                      const InstalledAppNames& apps, Date now) {
    std::vector<SweepItem> pile;
    for (const auto candidates : {downloads, desktop}) {
        for (const auto& file : candidates) {
            if (!hasExtension(file, installerExts)) continue;
            const auto* application = applicationOfInstaller(apps, letters(file.url.stem()));
            if (application == nullptr) continue;
            const auto date = arrival(file);
            pile.push_back({.file = file,
                            .reason = *application + " is installed",
                            .preselected = date && now - *date > installerGrace});
        }
    }
    sortLargestFirst(pile);
    return pile;
}

std::vector<SweepItem> screenshotsPile(std::span<const FileItem> desktop,
                                       std::span<const FileItem> downloads,
                                       std::span<const FileItem> elsewhere,
                                       const Metadata& metadata, Date now,
                                       const std::stop_token& stop) {
    std::vector<SweepItem> pile;
    for (const auto candidates : {desktop, downloads, elsewhere}) {
        for (const auto& file : candidates) {
            if (stop.stop_requested()) return pile;
            if (!isOldScreenshot(file, metadata, now)) continue;
            pile.push_back({.file = file,
                            .reason = "taken " + Fmt::ago(arrival(file), now),
                            .preselected = true});
        }
    }
    std::stable_sort(pile.begin(), pile.end(), [](const SweepItem& a, const SweepItem& b) {
        return a.file.added.value_or(distantPast) < b.file.added.value_or(distantPast);
    });
    return pile;
}

std::vector<SweepItem> forgottenPile(std::span<const FileItem> downloads, const Metadata& metadata,
                                     Date now, ClaimedFiles& claimed, const std::stop_token& stop) {
    std::vector<SweepItem> pile;
    for (const auto& candidate : downloads) {
        if (stop.stop_requested()) return pile;
        if (claimed.contains(candidate.url)) continue;
        FileItem file = candidate;
        file.lastUsed = metadata.lastUsed(file.url);
        const auto date = file.lastUsed ? file.lastUsed : arrival(file);
        if (!date || now - *date <= forgottenAge) continue;
        claimed.insert(file.url);
        pile.push_back({.file = std::move(file),
                        .reason = "untouched since " + Fmt::ago(date, now),
                        .preselected = true});
    }
    sortLargestFirst(pile);
    return pile;
}

std::vector<SweepItem> largePile(std::span<const FileItem> files, const Metadata& metadata,
                                 Date now, ClaimedFiles& claimed, const std::stop_token& stop) {
    std::vector<SweepItem> pile;
    for (const auto& candidate : files) {
        if (stop.stop_requested()) return pile;
        if (candidate.size <= largestOrdinarySize || claimed.contains(candidate.url)) continue;
        FileItem file = candidate;
        file.lastUsed = metadata.lastUsed(file.url);
        const auto date = file.lastUsed ? file.lastUsed : file.modified;
        const int months = Fmt::monthsSince(date, now);
        auto reason = months < recentlyOpenedMonths
                          ? "opened " + Fmt::ago(date, now)
                          : "not opened in " + std::to_string(months) + " months";
        claimed.insert(file.url);
        pile.push_back(
            {.file = std::move(file), .reason = std::move(reason), .preselected = false});
    }
    sortLargestFirst(pile);
    return pile;
}

}  // namespace nookwise
