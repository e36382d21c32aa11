#include "app/AppStore.h"
#include "model/ByteSum.h"

namespace nookwise {

std::int64_t AppStore::bytes(PileKind pile) const {
    if (pile == PileKind::duplicates) return duplicatesBytes();
    const auto found = piles.get().find(pile);
    if (found == piles.get().end()) return 0;
    std::int64_t sum = 0;
    for (const auto& item : found->second) sum = byteSum(sum, item.file.size);
    return sum;
}

std::int64_t AppStore::sweepTotal() const {
    std::int64_t sum = 0;
    for (const auto pile : allPileKinds) sum = byteSum(sum, bytes(pile));
    return sum;
}

std::int64_t AppStore::duplicatesBytes() const {
    std::int64_t sum = 0;
    for (const auto& group : duplicates.get()) sum = byteSum(sum, wastedBytes(group));
    return sum;
}

std::int64_t AppStore::duplicateCopies() const {
    std::int64_t copies = 0;
    for (const auto& group : duplicates.get()) {
        for (const auto& file : group.files) copies += file.url != group.keep ? 1 : 0;
    }
    return copies;
}

const std::vector<FileItem>& AppStore::shelf(ShelfKind kind) const {
    static const std::vector<FileItem> empty;
    const auto found = shelves.get().find(kind);
    return found == shelves.get().end() ? empty : found->second;
}

std::int64_t AppStore::shelfBytes(ShelfKind kind) const {
    std::int64_t sum = 0;
    for (const auto& file : shelf(kind)) sum = byteSum(sum, file.size);
    return sum;
}

}  // namespace nookwise
