// The one object that holds the application's state.
#pragma once

#include "app/AppSection.h"
#include "app/Library.h"
#include "app/Observable.h"
#include "app/Platform.h"
#include "model/AppInfo.h"
#include "model/Scan.h"
#include "platform/Tasks.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <unordered_set>
#include <vector>

namespace nookwise {

/// UI thread only: every operation is called there and every field is written there. Background
/// work takes values and posts values back. Byte sums that overflow stop the program.
class AppStore : public std::enable_shared_from_this<AppStore> {
  public:
    enum class Phase {
        /// Nothing has been scanned yet.
        idle,
        /// A scan that the user sees is running.
        scanning,
        /// A scan's result has been taken in.
        ready,
    };

    enum class ScanKind {
        /// Shows its progress.
        visible,
        /// Refreshes in the background, at utility priority.
        quiet,
    };

    /// Has no equality, so that emptying the same pile twice is told twice.
    struct JustCleared {
        PileKind pile;
        std::int64_t bytes;
    };

    /// Reads the disk figures, starts loading the applications and begins to refresh the figures
    /// every 120 seconds for as long as the store lives. Does not scan.
    static std::shared_ptr<AppStore> create(const Platform& platform);
    ~AppStore();

    // What the screens show.
    Observable<AppSection> section{AppSection::home};
    Observable<std::vector<FileItem>> files;
    Observable<Shelves> shelves;
    Observable<std::vector<AppInfo>> apps;
    Observable<Phase> phase{Phase::idle};
    Observable<ScanProgress> progress;
    Observable<Piles> piles;
    Observable<std::vector<DuplicateGroup>> duplicates;
    Observable<PileKind> selectedPile{PileKind::installers};
    Observable<std::unordered_set<FileUrl>> checked;
    Observable<std::optional<JustCleared>> justCleared;
    Observable<std::int64_t> freeBytes{0};
    Observable<std::int64_t> totalBytes{0};
    Observable<std::vector<FileItem>> recent;
    Observable<std::vector<FileItem>> justLanded;
    Observable<std::vector<FileItem>> screenshots;

    // The scan cycle (AppStoreScan.cpp).
    /// Starts a scan that takes the place of any scan in progress.
    void scan(ScanKind kind);
    void refreshDisk();

    // The sums (AppStoreSums.cpp).
    std::int64_t bytes(PileKind pile) const;
    std::int64_t sweepTotal() const;
    std::int64_t duplicatesBytes() const;
    std::int64_t duplicateCopies() const;
    const std::vector<FileItem>& shelf(ShelfKind kind) const;
    std::int64_t shelfBytes(ShelfKind kind) const;

    // The review of a pile (AppStoreSweep.cpp).
    /// Shows a pile with its own ticks; duplicates have a screen of their own.
    void select(PileKind pile);
    /// Ticks the pre-selected items of the shown pile, and nothing else.
    void resetChecks();
    void toggle(const FileUrl& url);
    /// Ticks every item of the shown pile.
    void tickAll();
    void tickNone();
    /// The ticked items of the shown pile, in its order.
    std::vector<SweepItem> checkedItems() const;

  private:
    explicit AppStore(const Platform& platform);

    void loadApps();
    void scheduleDiskRefresh();
    void absorb(ScanResult&& result);
    void rebuildLibrary();
    void selectPileWithItems();
    bool hasItems(PileKind pile) const;

    Platform platform_;
    std::int64_t scanGeneration_ = 0;
    std::stop_source scanStop_{std::nostopstate};
    std::stop_source appsStop_{std::nostopstate};
    std::unique_ptr<Tasks::Delay> nextDiskRefresh_;
};

}  // namespace nookwise
