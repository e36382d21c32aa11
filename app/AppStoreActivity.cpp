#include "app/AppStore.h"
#include "model/Counted.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

constexpr Seconds week{604'800};

/// In the order in which they are put back. Names may have been passed on from file to file: only
/// the last that was given is free to go back.
std::vector<ActivityEntry::Move> movesBack(const ActivityEntry& entry) {
    auto moves = entry.moves;
    if (entry.effectiveKind() == ActivityEntry::Kind::rename) std::ranges::reverse(moves);
    return moves;
}

/// From where an entry's files are to where they were. In a damaged log one place may be named
/// twice: the file there goes back once.
Relocation wayBack(const ActivityEntry& entry) {
    Relocation moved;
    for (const auto& move : movesBack(entry)) moved.emplace(move.inTrash, move.original);
    return moved;
}

}  // namespace

void AppStore::record(ActivityEntry entry) {
    activity.mutate([&](std::vector<ActivityEntry>& entries) {
        entries.push_back(std::move(entry));
        std::ranges::rotate(entries, entries.end() - 1);
        return true;
    });
    activityStore_.save(activity.get());
}

void AppStore::putBack(const Uuid& entryID) {
    const auto& entries = activity.get();
    const auto found = std::ranges::find(entries, entryID, &ActivityEntry::id);
    if (found == entries.end() || found->restored) return;
    // A copy, because the list may change with whatever follows.
    const ActivityEntry entry = *found;
    // First of all and whatever comes of it: an entry is put back once.
    activity.mutate([position = found - entries.begin()](std::vector<ActivityEntry>& all) {
        return all[static_cast<std::size_t>(position)].restored = true;
    });
    activityStore_.save(activity.get());
    switch (entry.effectiveKind()) {
        case ActivityEntry::Kind::trash:
            putBackTrashed(entry);
            break;
        case ActivityEntry::Kind::copy:
            removeCopies(entry);
            break;
        case ActivityEntry::Kind::move:
        case ActivityEntry::Kind::rename:
            putBackMoved(entry);
            break;
    }
    fileOpsVersion.set(fileOpsVersion.get() + 1);
}

TrashService::Returned AppStore::putBackFiles(const ActivityEntry& entry) {
    LongCall call(busy, platform_.clock, entry.moves.size());
    return TrashService::putBack(platform_.files, movesBack(entry),
                                 [&](std::size_t done) { call.report(done); });
}

void AppStore::putBackTrashed(const ActivityEntry& entry) {
    const auto count = putBackFiles(entry).count;
    justCleared.set(std::nullopt);
    refreshDisk();
    showToast("Put back " + countedFiles(count), std::nullopt, ToastLife::passing);
    // What came back belongs in the piles and the library again.
    scan(ScanKind::quiet);
}

void AppStore::removeCopies(const ActivityEntry& entry) {
    std::vector<FileItem> copies;
    copies.reserve(entry.moves.size());
    for (const auto& move : entry.moves) copies.push_back({.url = move.inTrash, .size = move.size});
    UrlSet gone;
    for (const auto& move : trashFiles(copies).moves) gone.insert(move.original);
    if (!gone.empty()) removeFromResults(gone);
    showToast("Removed " + counted(copies.size(), "copy", "copies"), std::nullopt,
              ToastLife::passing);
}

void AppStore::putBackMoved(const ActivityEntry& entry) {
    const auto returned = putBackFiles(entry);
    relocate(wayBack(entry));
    const auto astray =
        withContents(UrlSet(returned.astray.begin(), returned.astray.end()), knownFiles());
    // A group that took another file, or none, for its kept copy would offer all of its copies, and
    // a tick would have that other file trashed.
    duplicates.mutate([&](auto& groups) { return removeFrom(groups, astray); });
    checked.mutate([&](auto& ticked) { return removeFrom(ticked, astray); });
    const bool isRename = entry.effectiveKind() == ActivityEntry::Kind::rename;
    showToast(isRename ? "Old names are back" : "Moved " + countedFiles(returned.count) + " back",
              std::nullopt, ToastLife::passing);
}

void AppStore::undoLast() {
    const auto& entries = activity.get();
    if (entries.empty() || entries.front().restored) return;
    putBack(Uuid(entries.front().id));
}

void AppStore::showInTrash(const std::optional<Uuid>& entryID) {
    if (!entryID) return;
    const auto& entries = activity.get();
    const auto entry = std::ranges::find(entries, *entryID, &ActivityEntry::id);
    if (entry == entries.end()) return;
    std::vector<FileUrl> places;
    places.reserve(entry->moves.size());
    for (const auto& move : entry->moves) places.push_back(move.inTrash);
    platform_.workspace.reveal(places);
}

std::int64_t AppStore::freedThisWeek() const {
    return freedSince(activity.get(), platform_.clock.now() - week);
}

std::int64_t AppStore::freedThisMonth() const {
    return freedSince(activity.get(), startOfMonth(platform_.clock.now()));
}

}  // namespace nookwise
