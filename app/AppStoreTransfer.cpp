#include "app/AppStore.h"
#include "model/Counted.h"
#include "platform/Clock.h"

#include <string>
#include <utility>

namespace nookwise {
namespace {

struct Words {
    std::string_view doing;
    std::string_view done;
    std::string_view titleDone;
    std::string_view plain;
};

constexpr Words moveWords{"Moving", "moved", "Moved", "move"};
constexpr Words copyWords{"Copying", "copied", "Copied", "copy"};

const Words& wordsOf(TransferKind kind) {
    return kind == TransferKind::copy ? copyWords : moveWords;
}

std::string joined(std::initializer_list<std::string_view> words) {
    std::string text;
    for (const auto word : words) text += word;
    return text;
}

/// What is done by then needs no telling.
constexpr std::chrono::milliseconds patience{500};
constexpr std::chrono::milliseconds progressInterval{100};

std::string failureMessage(TransferKind kind, std::size_t asked) {
    return joined({"Couldn’t ", wordsOf(kind).plain, asked == 1 ? " that file" : " those files",
                   " — a file with that name may be in use"});
}

}  // namespace

void AppStore::transfer(std::vector<FileUrl> urls, const FileUrl& folder, TransferKind kind) {
    if (transferring.get() || urls.empty()) return;
    transferring.set(true);
    showToast(joined({wordsOf(kind).doing, " ", countedFiles(urls.size()), "…"}), std::nullopt,
              ToastLife::sticky);
    transferStop_ = std::stop_source();
    const auto latest = std::make_shared<Guarded<TransferProgress>>();
    latest->with([&](TransferProgress& shown) { shown.filesTotal = urls.size(); });
    showTransferProgress(patience, latest);
    platform_.tasks.detach(TaskPriority::userInitiated, [weak = weak_from_this(),
                                                         &files = platform_.files,
                                                         &tasks = platform_.tasks,
                                                         urls = std::move(urls), folder, kind,
                                                         latest, stop = transferStop_.get_token()] {
        const auto report = [&](const TransferProgress& now) {
            latest->with([&](TransferProgress& shown) { shown = now; });
        };
        auto moves = FileOps::transfer(files, urls, folder, kind, report, stop);
        tasks.post([weak, moves = std::move(moves), folder, kind, asked = urls.size()]() mutable {
            if (const auto store = weak.lock())
                store->endTransfer(std::move(moves), folder, kind, asked);
        });
    });
}

void AppStore::showTransferProgress(std::chrono::milliseconds delay,
                                    std::shared_ptr<Guarded<TransferProgress>> latest) {
    transferTimer_ = platform_.tasks.after(delay, [weak = weak_from_this(), latest] {
        const auto store = weak.lock();
        if (!store) return;
        store->transferProgress.set(latest->with([](TransferProgress& now) { return now; }));
        store->showTransferProgress(progressInterval, latest);
    });
}

void AppStore::cancelTransfer() {
    transferStop_.request_stop();
}

void AppStore::endTransfer(std::vector<ActivityEntry::Move> moves, const FileUrl& folder,
                           TransferKind kind, std::size_t asked) {
    transferTimer_.reset();
    transferProgress.set(std::nullopt);
    transferring.set(false);
    finishTransfer(std::move(moves), folder, kind, asked);
    if (isScanOutdated_) scan(runningScan_.value_or(ScanKind::quiet));
}

void AppStore::finishTransfer(std::vector<ActivityEntry::Move> moves, const FileUrl& folder,
                              TransferKind kind, std::size_t asked) {
    const auto raiseVersion = [this] { fileOpsVersion.set(fileOpsVersion.get() + 1); };
    if (moves.empty()) {
        // Nobody is to blame for what the user ended.
        showToast(transferStop_.stop_requested() ? joined({"Nothing was ", wordsOf(kind).done})
                                                 : failureMessage(kind, asked),
                  std::nullopt, ToastLife::passing);
        return raiseVersion();
    }
    const auto& words = wordsOf(kind);
    const auto count = countedFiles(moves.size());
    const auto name = folder.lastPathComponent();
    Relocation moved;
    if (kind == TransferKind::move) {
        for (const auto& move : moves) moved.emplace(move.original, move.inTrash);
    }
    const auto id = Uuid::random();
    record({.id = id,
            .date = platform_.clock.now(),
            .title = joined({words.titleDone, " ", count, " to ", name}),
            .source = "Split view",
            .moves = std::move(moves),
            .restored = false,
            .kind = kind == TransferKind::copy ? ActivityEntry::Kind::copy
                                               : ActivityEntry::Kind::move});
    if (kind == TransferKind::move) relocate(moved);
    raiseVersion();
    showToast(joined({count, " ", words.done, " to ", name}), id, ToastLife::passing);
}

}  // namespace nookwise
