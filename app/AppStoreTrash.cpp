#include "app/AppStore.h"
#include "model/ByteSum.h"
#include "platform/Clock.h"
#include "platform/UserDefaults.h"

#include <utility>

namespace nookwise {

void AppStore::requestTrash(std::vector<FileItem> items, std::optional<PileKind> pile,
                            std::string_view source) {
    if (items.empty()) return;
    auto request = trashRequest(std::move(items), pile, source);
    if (platform_.defaults.boolean(skipConfirmationKey(source)).value_or(false))
        return perform(request);
    pendingTrash.set(std::move(request));
}

void AppStore::confirm(TrashRequest request, NextTime nextTime) {
    if (nextTime == NextTime::goAhead)
        platform_.defaults.setBoolean(skipConfirmationKey(request.source), true);
    pendingTrash.set(std::nullopt);
    perform(request);
}

void AppStore::dismissTrash() {
    pendingTrash.set(std::nullopt);
}

void AppStore::askBeforeEveryTrash() {
    platform_.defaults.removeAllWithPrefix(skipConfirmationPrefix);
}

void AppStore::perform(const TrashRequest& request) {
    auto trashed = trashFiles(request.files);
    if (trashed.moves.empty()) {
        return showToast(nothingTrashedMessage(trashed.failed.size()), std::nullopt,
                         ToastLife::passing);
    }
    const auto message = trashedMessage(trashed);
    UrlSet gone;
    std::int64_t bytes = 0;
    for (const auto& move : trashed.moves) {
        gone.insert(move.original);
        bytes = byteSum(bytes, move.size);
    }
    ActivityEntry entry{.id = Uuid::random(),
                        .date = platform_.clock.now(),
                        .title = trashedTitle(trashed.moves.size(), request.pile),
                        .source = request.source,
                        .moves = std::move(trashed.moves),
                        .restored = false,
                        .kind = std::nullopt};
    const auto id = entry.id;
    record(std::move(entry));
    removeFromResults(gone);
    if (request.pile) noteCleared(*request.pile, bytes);
    refreshDisk();
    showToast(message, id, ToastLife::passing);
}

TrashService::Trashed AppStore::trashFiles(const std::vector<FileItem>& items) {
    LongCall call(busy, platform_.clock, items.size());
    return TrashService::trash(platform_.files, items,
                               [&](std::size_t done) { call.report(done); });
}

void AppStore::noteCleared(PileKind pile, std::int64_t bytes) {
    if (pile == PileKind::duplicates || hasItems(pile)) return;
    justCleared.set(JustCleared{pile, bytes});
}

}  // namespace nookwise
