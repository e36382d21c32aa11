// The one object that holds the application's state.
#pragma once

#include "app/AppSection.h"
#include "app/Library.h"
#include "app/LongCall.h"
#include "app/Observable.h"
#include "app/Platform.h"
#include "app/QuestionCorpus.h"
#include "app/Results.h"
#include "app/Toast.h"
#include "app/TrashRequest.h"
#include "fileops/ActivityStore.h"
#include "fileops/FileOps.h"
#include "fileops/RenameFiles.h"
#include "fileops/RenamePlan.h"
#include "model/AppInfo.h"
#include "model/Scan.h"
#include "platform/Guarded.h"
#include "platform/Tasks.h"
#include "search/Ask.h"
#include "search/TextIndexer.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
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

    /// How many of the files that a run of the indexer reads are done. Has no equality either.
    struct Indexing {
        std::size_t done;
        std::size_t total;
    };

    /// Whether files from the same source are confirmed the next time.
    enum class NextTime { ask, goAhead };

    /// Reads the activity log and the disk figures, clears up after earlier runs, starts loading
    /// the applications and begins to refresh the figures every 120 seconds for as long as the
    /// store lives. Does not scan.
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
    /// What was read inside files; the same in lower case; where files came from.
    Observable<TextsByUrl> texts;
    Observable<TextsByUrl> lowerTexts;
    Observable<TextsByUrl> sources;
    /// Present while text is being read.
    Observable<std::optional<Indexing>> indexing;
    /// The question on the Ask screen, as typed.
    Observable<std::string> searchText;
    /// Newest first.
    Observable<std::vector<ActivityEntry>> activity;
    Observable<std::optional<Toast>> toast;
    /// Waits for the user's confirmation.
    Observable<std::optional<TrashRequest>> pendingTrash;
    Observable<std::optional<JustCleared>> justCleared;
    /// Present only inside a call that takes long. Whoever observes it may repaint the window, and
    /// must change nothing.
    Observable<std::optional<Busy>> busy;
    Observable<std::int64_t> freeBytes{0};
    Observable<std::int64_t> totalBytes{0};
    /// Raised by one after each put back and each finished move, copy and rename.
    Observable<std::int64_t> fileOpsVersion{0};
    /// Whether a move or copy is running.
    Observable<bool> transferring{false};
    /// Present while a move or copy runs that takes long.
    Observable<std::optional<TransferProgress>> transferProgress;
    /// The files handed to the rename screen; present while that is open.
    Observable<std::optional<std::vector<FileItem>>> renameFiles;
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

    // The copies (AppStoreSweep.cpp).
    /// Keeps the copy at `url` in the group of that id. Of several groups of one id it is the group
    /// that holds the copy, else the first.
    void setKeep(std::string_view groupID, const FileUrl& url);
    /// Asks to trash all copies but the kept ones.
    void trashDuplicates(const std::vector<DuplicateGroup>& groups);

    // The way to the Trash (AppStoreTrash.cpp).
    /// Asks for confirmation, unless the user wants none for this source. `pile` is where the files
    /// come from, if anywhere; `source` is the name of the place that asks.
    void requestTrash(std::vector<FileItem> files, std::optional<PileKind> pile,
                      std::string_view source);
    void confirm(TrashRequest request, NextTime nextTime);
    void dismissTrash();
    /// Confirms every source again.
    void askBeforeEveryTrash();

    // Toasts (AppStoreToast.cpp).
    void closeToast();
    /// Puts back the newest entry. The toast goes first, so that the outcome's own toast is seen.
    void undoFromToast();

    // The activity log (AppStoreActivity.cpp).
    void putBack(const Uuid& entryID);
    /// Puts back the newest entry, if it has not been put back yet; never an older one.
    void undoLast();
    void showInTrash(const std::optional<Uuid>& entryID);
    /// Bytes trashed in the last 7 days, and in this calendar month, and not put back.
    std::int64_t freedThisWeek() const;
    std::int64_t freedThisMonth() const;

    // Move and copy (AppStoreTransfer.cpp).
    /// In the background. Does nothing while another one runs.
    void transfer(std::vector<FileUrl> urls, const FileUrl& folder, TransferKind kind);
    /// Ends the running one soon, inside a file too. What is done stays done and is recorded.
    void cancelTransfer();

    // Rename (AppStoreRename.cpp).
    /// Gives the files the new names of the rows, in order, and records it. A name that is taken
    /// gets a number; a file that has its new name already, or cannot get it, is skipped.
    void applyRenames(const std::vector<RenameRow>& rows);

    // Questions (AppStoreAsk.cpp).
    /// The first `limit` answers, newest first. Changes nothing.
    std::vector<AskResult> ask(const ParsedQuery& query, std::size_t limit) const;
    /// The files of the same answers.
    std::vector<FileItem> answers(const ParsedQuery& query, std::size_t limit) const;
    /// The piece of the file's text that an answer to a question with these words shows.
    std::optional<std::string> snippet(const FileUrl& url,
                                       const std::vector<std::string>& words) const;

  private:
    enum class ToastLife { passing, sticky };

    explicit AppStore(const Platform& platform);

    void removeLeftovers();
    void loadApps();
    void scheduleDiskRefresh();
    void absorb(ScanResult&& result);
    void restartScan();
    void rebuildLibrary();
    /// Reads the text of the scanned files in the background, in place of a run in progress.
    void startIndexing();
    void readUnread(std::shared_ptr<const std::vector<FileItem>> scanned,
                    const std::stop_token& stop);
    void absorb(const IndexEntries& entries);
    /// Has the indexer take along what it read of these files, or is about to have read.
    void relocateIndex(const Relocation& moved);
    void perform(const TrashRequest& request);
    void showToast(std::string message, std::optional<Uuid> entryID, ToastLife life);
    void record(ActivityEntry entry);
    KnownFiles knownFiles() const;
    void removeFromResults(const UrlSet& urls);
    void relocate(const Relocation& moved);
    TrashService::Returned putBackFiles(const ActivityEntry& entry);
    void putBackTrashed(const ActivityEntry& entry);
    void removeCopies(const ActivityEntry& entry);
    void putBackMoved(const ActivityEntry& entry);
    Renamed renamedFiles(const std::vector<RenameRow>& rows);
    TrashService::Trashed trashFiles(const std::vector<FileItem>& items);
    void noteCleared(PileKind pile, std::int64_t bytes);
    /// Shows how far the transfer is then, and again from time to time until it ends.
    void showTransferProgress(std::chrono::milliseconds delay,
                              std::shared_ptr<Guarded<TransferProgress>> latest);
    void endTransfer(std::vector<ActivityEntry::Move> moves, const FileUrl& folder,
                     TransferKind kind, std::size_t asked);
    void finishTransfer(std::vector<ActivityEntry::Move> moves, const FileUrl& folder,
                        TransferKind kind, std::size_t asked);
    void selectPileWithItems();
    bool hasItems(PileKind pile) const;

    /// What questions are asked of.
    QuestionCorpus corpus_{{files, texts, lowerTexts, sources}};
    Platform platform_;
    ActivityStore activityStore_;
    /// Shared with the run in the background, which may outlive the store by a moment.
    std::shared_ptr<TextIndexer> indexer_;
    std::int64_t scanGeneration_ = 0;
    std::optional<ScanKind> runningScan_;
    /// Files were on their way while its result was taken in.
    bool isScanOutdated_ = false;
    /// A run of the indexer goes on: known texts are being loaded, or files read.
    bool isIndexing_ = false;
    std::stop_source scanStop_{std::nostopstate};
    std::stop_source appsStop_{std::nostopstate};
    std::stop_source transferStop_{std::nostopstate};
    std::stop_source leftoversStop_;
    std::stop_source indexStop_{std::nostopstate};
    /// Ends what need not be finished when the application does.
    std::stop_source quitStop_;
    std::unique_ptr<Tasks::Delay> nextDiskRefresh_;
    std::unique_ptr<Tasks::Delay> toastTimer_;
    std::unique_ptr<Tasks::Delay> transferTimer_;
};

}  // namespace nookwise
