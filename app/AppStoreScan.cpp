#include "app/AppStore.h"
#include "platform/Clock.h"
#include "platform/UserFolders.h"
#include "scan/Scanner.h"

#include <utility>

namespace nookwise {

void AppStore::scan(ScanKind kind) {
    scanStop_.request_stop();
    scanStop_ = std::stop_source();
    const auto generation = ++scanGeneration_;
    runningScan_ = kind;
    isScanOutdated_ = false;
    if (kind == ScanKind::visible) {
        phase.set(Phase::scanning);
        progress.set({.folder = {}, .filesSeen = 0, .fraction = 0.0, .step = "Starting"});
    }
    // A report of a scan that was replaced may still be shown until the next one comes: at most a
    // stale line.
    auto report = [weak = weak_from_this(), kind,
                   &tasks = platform_.tasks](const ScanProgress& latest) {
        if (kind == ScanKind::quiet) return;
        tasks.post([weak, latest] {
            if (const auto store = weak.lock()) store->progress.set(latest);
        });
    };
    const auto priority =
        kind == ScanKind::quiet ? TaskPriority::utility : TaskPriority::userInitiated;
    platform_.tasks.detach(
        priority, [weak = weak_from_this(), platform = platform_, stop = scanStop_.get_token(),
                   generation, report = std::move(report)] {
            const Scanner scanner(platform.files, platform.metadata, platform.folders,
                                  platform.workspace, platform.clock);
            platform.tasks.post(
                [weak, stop, generation, result = scanner.runBlocking(report, stop)]() mutable {
                    const auto store = weak.lock();
                    // A cancelled scanner may still return; only the newest generation lands.
                    if (!store || stop.stop_requested() || store->scanGeneration_ != generation)
                        return;
                    store->absorb(std::move(result));
                });
        });
}

void AppStore::restartScan() {
    // It may have read what has changed since.
    if (runningScan_) scan(*runningScan_);
}

void AppStore::absorb(ScanResult&& result) {
    runningScan_.reset();
    isScanOutdated_ = transferring.get();
    piles.set(std::move(result.piles));
    duplicates.set(std::move(result.duplicates));
    files.set(std::move(result.files));
    rebuildLibrary();
    loadApps();
    startIndexing();
    phase.set(Phase::ready);
    selectPileWithItems();
    resetChecks();
    refreshDisk();
}

void AppStore::rebuildLibrary() {
    const auto& folders = platform_.folders;
    auto library =
        buildLibrary(files.get(), folders.downloads(), folders.desktop(), platform_.clock.now());
    shelves.set(std::move(library.shelves));
    recent.set(std::move(library.recent));
    justLanded.set(std::move(library.justLanded));
    screenshots.set(std::move(library.screenshots));
}

bool AppStore::hasItems(PileKind pile) const {
    const auto found = piles.get().find(pile);
    return found != piles.get().end() && !found->second.empty();
}

void AppStore::selectPileWithItems() {
    if (hasItems(selectedPile.get())) return;
    for (const auto pile : allPileKinds) {
        if (pile != PileKind::duplicates && hasItems(pile)) return selectedPile.set(pile);
    }
}

}  // namespace nookwise
