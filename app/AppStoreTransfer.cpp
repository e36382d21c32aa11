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
    platform_.tasks.detach(TaskPriority::userInitiated, [weak = weak_from_this(),
                                                         &files = platform_.files,
                                                         &tasks = platform_.tasks,
                                                         urls = std::move(urls), folder, kind,
                                                         stop = transferStop_.get_token()] {
        auto moves = FileOps::transfer(files, urls, folder, kind, stop);
        tasks.post([weak, moves = std::move(moves), folder, kind, asked = urls.size()]() mutable {
            const auto store = weak.lock();
            if (!store) return;
            store->transferring.set(false);
            store->finishTransfer(std::move(moves), folder, kind, asked);
        });
    });
}

void AppStore::finishTransfer(std::vector<ActivityEntry::Move> moves, const FileUrl& folder,
                              TransferKind kind, std::size_t asked) {
    const auto raiseVersion = [this] { fileOpsVersion.set(fileOpsVersion.get() + 1); };
    if (moves.empty()) {
        showToast(failureMessage(kind, asked), std::nullopt, ToastLife::passing);
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

void AppStore::relocate(const Relocation& moved) {
    const auto move = [&](auto& in) { return nookwise::relocate(in, moved); };
    files.mutate(move);
    piles.mutate(move);
    texts.mutate(move);
    lowerTexts.mutate(move);
    sources.mutate(move);
    duplicates.mutate(move);
    checked.mutate(move);
    rebuildLibrary();
    restartScan();
}

}  // namespace nookwise
