#include "scan/DuplicateFinder.h"

#include "platform/Text.h"
#include "scan/IdenticalContents.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace nookwise {
namespace {

constexpr std::int64_t smallestSize = 65'536;
constexpr std::int64_t largestSize = 4'000'065'536;
// Enough to tell most files of equal length apart by one page of each.
constexpr std::size_t headSize = 4'096;
// More readers than this make no disk faster.
constexpr unsigned mostThreads = 4;

constexpr std::array<std::string_view, 41> duplicateExts{
    "png", "jpg",  "jpeg", "heic",  "gif", "webp", "tiff", "psd", "ai",   "fig",     "sketch",
    "mov", "mp4",  "m4v",  "avi",   "mkv", "mp3",  "wav",  "m4a", "aif",  "aiff",    "flac",
    "pdf", "doc",  "docx", "pages", "key", "ppt",  "pptx", "xls", "xlsx", "numbers", "csv",
    "rtf", "epub", "zip",  "rar",   "7z",  "dmg",  "pkg",  "iso"};

using Positions = std::vector<std::size_t>;

bool isCandidate(const FileItem& file) {
    static const std::unordered_set<std::string_view> exts(duplicateExts.begin(),
                                                           duplicateExts.end());
    return file.size >= smallestSize && file.size <= largestSize &&
           exts.contains(lowercased(file.url.pathExtension()));
}

/// Positions of candidates that share a size with another one, by size, in the order of first
/// members.
std::vector<Positions> sizeGroups(std::span<const FileItem> files) {
    std::unordered_map<std::int64_t, std::size_t> groupOfSize;
    std::vector<Positions> groups;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (!isCandidate(files[i])) continue;
        const auto [entry, isNew] = groupOfSize.emplace(files[i].size, groups.size());
        if (isNew) groups.emplace_back();
        groups[entry->second].push_back(i);
    }
    std::erase_if(groups, [](const Positions& group) { return group.size() < 2; });
    return groups;
}

/// Runs `work(i)` for every i below `count` on several threads, the lower ones first. Ends soon
/// after a stop request, some of the work undone.
void inParallel(std::size_t count, const std::stop_token& stop,
                const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next{0};
    const auto worker = [&] {
        for (auto i = next.fetch_add(1); i < count && !stop.stop_requested(); i = next.fetch_add(1))
            work(i);
    };
    const auto threads = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
    std::vector<std::jthread> helpers;
    try {
        for (unsigned i = 1; i < threads && i < count; ++i) helpers.emplace_back(worker);
    } catch (const std::system_error&) {
        // Where the system gives no more threads, there are fewer.
    }
    worker();
}

struct Head {
    std::int64_t length = 0;
    std::size_t fingerprint = 0;
};

std::optional<Head> readHead(const FileManager& files, const FileUrl& url) {
    const auto opened = files.open(url);
    if (!opened) return std::nullopt;
    const auto state = opened.value()->state();
    if (!state || state.value().size > largestSize) return std::nullopt;
    std::array<std::byte, headSize> buffer{};
    const auto read = opened.value()->read(buffer);
    if (!read) return std::nullopt;
    const std::string_view head(reinterpret_cast<const char*>(buffer.data()), read.value());
    return Head{state.value().size, std::hash<std::string_view>{}(head)};
}

/// Files on which a closer look is worth while: equal in size on disk, in length and, most likely,
/// at their beginnings.
struct Suspects {
    std::int64_t length;
    Positions positions;

    std::int64_t bytesToRead() const {
        return length * static_cast<std::int64_t>(positions.size());
    }
};

std::vector<Suspects> suspectsOf(const FileManager& files, std::span<const FileItem> items,
                                 const Positions& group, const std::stop_token& stop) {
    std::map<std::pair<std::int64_t, std::size_t>, Positions> byHead;
    for (const auto position : group) {
        if (stop.stop_requested()) return {};
        if (const auto head = readHead(files, items[position].url)) {
            byHead[{head->length, head->fingerprint}].push_back(position);
        }
    }
    std::vector<Suspects> suspects;
    for (auto& [head, positions] : byHead) {
        if (positions.size() >= 2) suspects.push_back({head.first, std::move(positions)});
    }
    return suspects;
}

template <typename Element>
std::vector<Element> joined(std::vector<std::vector<Element>>&& lists) {
    std::vector<Element> all;
    for (auto& list : lists) std::move(list.begin(), list.end(), std::back_inserter(all));
    return all;
}

bool namesACopy(std::string_view fileName) {
    const auto lower = lowercased(fileName);
    if (lower.find(" copy") != std::string::npos) return true;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    for (auto open = lower.find('('); open != std::string::npos; open = lower.find('(', open + 1)) {
        auto end = open + 1;
        while (end < lower.size() && isDigit(lower[end])) ++end;
        if (end > open + 1 && end < lower.size() && lower[end] == ')') return true;
    }
    return false;
}

/// Lower is better.
int keepScore(const FileItem& file, const ArrivalFolders& folders) {
    const auto path = file.url.path();
    const auto liesIn = [&](std::string_view name, const FileUrl& folder) {
        return path.find(name) != std::string_view::npos || file.url.isWithin(folder);
    };
    return (liesIn("/Downloads/", folders.downloads) ? 4 : 0) +
           (liesIn("/Desktop/", folders.desktop) ? 2 : 0) +
           (namesACopy(file.url.lastPathComponent()) ? 3 : 0);
}

Date keepDate(const FileItem& file) {
    return file.added ? *file.added : file.modified.value_or(distantFuture);
}

DuplicateGroup makeGroup(std::span<const FileItem> items, const Suspects& suspects,
                         IdenticalFiles&& identical, const ArrivalFolders& folders) {
    DuplicateGroup group{.id = std::move(identical.digest), .files = {}, .keep = {}};
    for (const auto position : identical.positions)
        group.files.push_back(items[suspects.positions[position]]);
    std::stable_sort(
        group.files.begin(), group.files.end(),
        [&](const FileItem& a, const FileItem& b) { return keepFirst(a, b, folders); });
    group.keep = group.files.front().url;
    return group;
}

std::vector<Suspects> allSuspects(const FileManager& files, std::span<const FileItem> items,
                                  const std::stop_token& stop) {
    const auto groups = sizeGroups(items);
    std::vector<std::vector<Suspects>> found(groups.size());
    inParallel(groups.size(), stop,
               [&](std::size_t i) { found[i] = suspectsOf(files, items, groups[i], stop); });
    return joined(std::move(found));
}

std::vector<IdenticalFiles> identicalAmong(const FileManager& files,
                                           std::span<const FileItem> items,
                                           const Suspects& suspects, const std::stop_token& stop) {
    std::vector<FileUrl> urls;
    for (const auto position : suspects.positions) urls.push_back(items[position].url);
    return findIdentical(files, urls, suspects.length, stop);
}

}  // namespace

bool keepFirst(const FileItem& a, const FileItem& b, const ArrivalFolders& folders) {
    const int scoreA = keepScore(a, folders);
    const int scoreB = keepScore(b, folders);
    return scoreA != scoreB ? scoreA < scoreB : keepDate(a) < keepDate(b);
}

std::vector<DuplicateGroup> findDuplicates(const FileManager& files,
                                           std::span<const FileItem> candidates,
                                           const std::stop_token& stop,
                                           const ArrivalFolders& folders) {
    auto suspects = allSuspects(files, candidates, stop);
    // The longest work first, so that no thread begins it when the others are done.
    std::stable_sort(suspects.begin(), suspects.end(), [](const Suspects& a, const Suspects& b) {
        return a.bytesToRead() > b.bytesToRead();
    });
    struct Found {
        std::size_t firstPosition;
        DuplicateGroup group;
    };
    std::vector<std::vector<Found>> perSuspects(suspects.size());
    inParallel(suspects.size(), stop, [&](std::size_t i) {
        for (auto& identical : identicalAmong(files, candidates, suspects[i], stop)) {
            const auto first = suspects[i].positions[identical.positions.front()];
            perSuspects[i].push_back(
                {first, makeGroup(candidates, suspects[i], std::move(identical), folders)});
        }
    });
    if (stop.stop_requested()) return {};
    auto found = joined(std::move(perSuspects));
    std::sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        const auto wasteA = wastedBytes(a.group);
        const auto wasteB = wastedBytes(b.group);
        return wasteA != wasteB ? wasteA > wasteB : a.firstPosition < b.firstPosition;
    });
    std::vector<DuplicateGroup> groups;
    groups.reserve(found.size());
    for (auto& entry : found) groups.push_back(std::move(entry.group));
    return groups;
}

}  // namespace nookwise
