#include "app/AppStore.h"
#include "fileops/RenameFiles.h"
#include "model/Counted.h"
#include "platform/Clock.h"

#include <utility>

namespace nookwise {
namespace {

std::string failureMessage(std::size_t asked) {
    return asked == 1 ? "Couldn’t rename that file" : "Couldn’t rename those files";
}

}  // namespace

void AppStore::applyRenames(const std::vector<RenameRow>& rows) {
    auto renamed = renamedFiles(rows);
    if (renamed.moves.empty()) {
        if (renamed.failed > 0)
            showToast(failureMessage(renamed.failed), std::nullopt, ToastLife::passing);
        return;
    }
    const auto count = countedFiles(renamed.moves.size());
    Relocation moved;
    for (const auto& move : renamed.moves) moved.emplace(move.original, move.inTrash);
    const auto id = Uuid::random();
    record({.id = id,
            .date = platform_.clock.now(),
            .title = "Renamed " + count + " by the text inside",
            .source = "Smart rename",
            .moves = std::move(renamed.moves),
            .restored = false,
            .kind = ActivityEntry::Kind::rename});
    relocate(moved);
    fileOpsVersion.set(fileOpsVersion.get() + 1);
    showToast("Renamed " + count, id, ToastLife::passing);
}

Renamed AppStore::renamedFiles(const std::vector<RenameRow>& rows) {
    LongCall call(busy, platform_.clock, rows.size());
    return nookwise::renameFiles(platform_.files, rows,
                                 [&](std::size_t done) { call.report(done); });
}

}  // namespace nookwise
