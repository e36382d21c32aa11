#include "scan/Walk.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace nookwise {
namespace {

constexpr std::array<std::string_view, 7> skipFolders{
    "node_modules", "DerivedData", "Pods", ".build", "build", "Library", "vendor"};
constexpr std::array<std::string_view, 8> projectMarkers{
    ".git",       "Package.swift",  "package.json", ".xcodeproj",
    "Cargo.toml", "pyproject.toml", "Gemfile",      "go.mod"};

constexpr int progressStride = 400;
constexpr double walkDivisor = 20'000;
constexpr double walkCap = 0.9;
/// The walk takes up to three quarters of the whole, a quarter for each root.
constexpr double rootShare = 0.25;

bool marksProject(std::string_view entryName) {
    return std::any_of(projectMarkers.begin(), projectMarkers.end(), [&](std::string_view marker) {
        return entryName == marker || (marker.front() == '.' && entryName.ends_with(marker));
    });
}

bool isRecorded(const FoundFile& found) {
    const auto extension = found.url.pathExtension();
    return extension != "xcodeproj" && extension != "xcworkspace" &&
           found.attributes.cloud != CloudState::notHere;
}

struct ResolvedRoot {
    std::size_t index;
    FileUrl folder;
};

std::vector<ResolvedRoot> readableRoots(const FileManager& files,
                                        std::span<const Scanner::Root> roots, const FileUrl& home) {
    const auto resolvedHome = files.resolved(home);
    const auto& homeFolder = resolvedHome ? resolvedHome.value() : home;
    std::vector<ResolvedRoot> readable;
    for (std::size_t i = 0; i < roots.size(); ++i) {
        const auto resolved = files.resolved(roots[i].url);
        if (!resolved || homeFolder.isWithin(resolved.value())) continue;
        const bool seen = std::any_of(
            readable.begin(), readable.end(),
            [&](const ResolvedRoot& earlier) { return earlier.folder == resolved.value(); });
        if (!seen) readable.push_back({i, resolved.value()});
    }
    return readable;
}

/// The places inside `root`, as the walk meets them, of the other roots that lie in it.
std::vector<FileUrl> rootsInside(const ResolvedRoot& root, const FileUrl& url,
                                 std::span<const ResolvedRoot> all) {
    std::vector<FileUrl> inside;
    for (const auto& other : all) {
        if (other.index == root.index || !other.folder.isWithin(root.folder)) continue;
        const auto below = other.folder.path().substr(root.folder.path().size());
        inside.emplace_back(std::string(url.path()).append(below));
    }
    return inside;
}

EnumerationRules rulesLeavingOut(std::vector<FileUrl> otherRoots) {
    return {.skipsFolder =
                [otherRoots = std::move(otherRoots)](const FileUrl& folder) {
                    const auto name = folder.lastPathComponent();
                    return std::find(skipFolders.begin(), skipFolders.end(), name) !=
                               skipFolders.end() ||
                           std::find(otherRoots.begin(), otherRoots.end(), folder) !=
                               otherRoots.end();
                },
            .skipsFolderHolding = isProject};
}

/// Counts one root's files and says when a report is due.
class RootProgress {
  public:
    RootProgress(std::size_t index, const std::string& name, const Scanner::Progress& progress)
        : index_(static_cast<double>(index)), name_(name), progress_(progress) {}

    void found(std::size_t filesSeen) {
        if (++count_ % progressStride == 0) {
            report(filesSeen, (std::min(count_ / walkDivisor, walkCap) + index_) * rootShare);
        }
    }

    void finished(std::size_t filesSeen) const { report(filesSeen, (index_ + 1) * rootShare); }

  private:
    void report(std::size_t filesSeen, double fraction) const {
        progress_({.folder = name_,
                   .filesSeen = static_cast<int>(filesSeen),
                   .fraction = fraction,
                   .step = "Reading " + name_});
    }

    double index_;
    const std::string& name_;
    const Scanner::Progress& progress_;
    int count_ = 0;
};

}  // namespace

std::span<FileItem> WalkedFiles::ofRoot(std::size_t root) {
    const auto start = root == 0 ? 0 : ends[root - 1];
    return std::span(files).subspan(start, ends[root] - start);
}

bool isProject(std::span<const std::string_view> entryNames) {
    return std::any_of(entryNames.begin(), entryNames.end(), marksProject);
}

FileItem fileItem(FoundFile&& found) {
    const auto& attributes = found.attributes;
    return {.url = std::move(found.url),
            .size = attributes.allocatedSize ? *attributes.allocatedSize
                                             : attributes.fileSize.value_or(0),
            .modified = attributes.modified,
            .added = attributes.added,
            .lastUsed = std::nullopt};
}

std::vector<FileItem> topLevelFiles(const FileManager& files, const FileUrl& folder,
                                    const std::stop_token& stop) {
    std::vector<FileItem> items;
    auto entries = files.list(folder, stop);
    if (!entries) return items;
    for (auto& entry : entries.value()) {
        if (entry.attributes.type == FileType::regular) items.push_back(fileItem(std::move(entry)));
    }
    return items;
}

WalkedFiles walk(const FileManager& files, std::span<const Scanner::Root> roots,
                 const FileUrl& home, const Scanner::Progress& progress,
                 const std::stop_token& stop) {
    WalkedFiles walked;
    walked.ends.resize(roots.size());
    const auto readable = readableRoots(files, roots, home);
    auto next = readable.begin();
    for (std::size_t i = 0; i < roots.size(); ++i) {
        if (next != readable.end() && next->index == i && !stop.stop_requested()) {
            RootProgress rootProgress(i, roots[i].name, progress);
            const auto rules = rulesLeavingOut(rootsInside(*next, roots[i].url, readable));
            const auto found = [&](FoundFile&& file) {
                if (!isRecorded(file)) return;
                walked.files.push_back(fileItem(std::move(file)));
                rootProgress.found(walked.files.size());
            };
            if (files.enumerate(roots[i].url, rules, found, stop))
                rootProgress.finished(walked.files.size());
            ++next;
        }
        walked.ends[i] = walked.files.size();
    }
    return walked;
}

}  // namespace nookwise
