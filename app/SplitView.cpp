#include "app/SplitView.h"

#include "app/HoldingFolders.h"
#include "platform/UserFolders.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

namespace nookwise {
namespace {

bool isMoveOrRename(const ActivityEntry& entry) {
    const auto kind = entry.effectiveKind();
    return kind == ActivityEntry::Kind::move || kind == ActivityEntry::Kind::rename;
}

/// Where an entry took a folder, by itself or with one above it.
std::optional<FileUrl> placeAfter(const ActivityEntry& entry, const FileUrl& folder) {
    if (!isMoveOrRename(entry)) return std::nullopt;
    for (const auto& move : entry.moves) {
        const auto& from = entry.restored ? move.inTrash : move.original;
        const auto& to = entry.restored ? move.original : move.inTrash;
        if (!folder.isWithin(from)) continue;
        return FileUrl(std::string(to.path()).append(folder.path().substr(from.path().size())));
    }
    return std::nullopt;
}

/// Where a folder that is gone has gone since it was last there. `activity` has the newest first.
std::optional<FileUrl> newPlaceOf(const FileUrl& folder,
                                  const std::vector<ActivityEntry>& activity) {
    std::optional<FileUrl> place;
    auto entry = activity.begin();
    while (entry != activity.end() && !place) place = placeAfter(*entry++, folder);
    if (!place) return std::nullopt;
    for (--entry; entry != activity.begin();) {
        if (auto next = placeAfter(*--entry, *place)) place = std::move(next);
    }
    return place;
}

/// What lies in a folder of them goes with that.
std::vector<FileUrl> outermost(const std::vector<FileUrl>& urls) {
    HoldingFolders folders;
    for (const auto& url : urls) folders.add(url);
    std::vector<FileUrl> result;
    std::ranges::copy_if(urls, std::back_inserter(result),
                         [&](const auto& url) { return folders.holding(url.path()) == nullptr; });
    return result;
}

}  // namespace

SplitView::SplitView(std::shared_ptr<AppStore> store, const Platform& platform)
    : left(platform, platform.folders.downloads()),
      right(platform, platform.folders.documents()),
      store_(std::move(store)),
      folders_(platform.folders),
      tasks_(platform.tasks),
      self_(std::make_shared<SplitView*>(this)),
      version_(store_->fileOpsVersion.observe([this] { refresh(); })),
      // What was trashed raises no version.
      activity_(store_->activity.observe([this] { refresh(); })),
      section_(store_->section.observe(
          [this] { isInSight_ = isInSight_ && store_->section.get() == AppSection::split; })) {}

void SplitView::show() {
    isInSight_ = true;
    followFolders();
}

void SplitView::refresh() {
    if (!isInSight_ || std::exchange(isRefreshing_, true)) return;
    tasks_.post([weak = std::weak_ptr(self_)] {
        const auto self = weak.lock();
        if (!self) return;
        auto& view = **self;
        view.isRefreshing_ = false;
        if (view.isInSight_) view.followFolders();
    });
}

void SplitView::followFolders() {
    for (auto* pane : {&left, &right}) {
        pane->follow(newPlaceOf(pane->folder.get(), store_->activity.get()));
    }
}

void SplitView::transferSelected(TransferKind kind) {
    dropInto(activePane().selectedInOrder(), otherPane().folder.get(), kind);
}

void SplitView::drop(const std::vector<FileUrl>& urls, Side side, TransferKind kind) {
    dropInto(urls, pane(side).folder.get(), kind);
}

void SplitView::dropInto(const std::vector<FileUrl>& urls, const FileUrl& folder,
                         TransferKind kind) {
    const auto home = folders_.home().standardized();
    std::unordered_set<FileUrl> seen;
    std::vector<FileUrl> wanted;
    for (const auto& url : urls) {
        const bool holdsHome = home.isWithin(url.standardized());
        if (url.empty() || (kind == TransferKind::move && holdsHome)) continue;
        // A file that is named twice is there once.
        if (seen.insert(url).second) wanted.push_back(url);
    }
    store_->transfer(outermost(wanted), folder, kind);
}

void SplitView::swapSides() {
    left.exchangeWith(right);
    left.reload();
    right.reload();
}

}  // namespace nookwise
