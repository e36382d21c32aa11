#include "app/AppStore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace nookwise {

void AppStore::select(PileKind pile) {
    if (pile == PileKind::duplicates) return section.set(AppSection::duplicates);
    section.set(AppSection::sweep);
    selectedPile.set(pile);
    justCleared.set(std::nullopt);
    resetChecks();
}

void AppStore::resetChecks() {
    std::unordered_set<FileUrl> ticked;
    const auto found = piles.get().find(selectedPile.get());
    if (found != piles.get().end()) {
        for (const auto& item : found->second) {
            if (item.preselected) ticked.insert(item.file.url);
        }
    }
    checked.set(std::move(ticked));
}

void AppStore::toggle(const FileUrl& url) {
    checked.mutate([&](std::unordered_set<FileUrl>& ticked) {
        if (ticked.erase(url) == 0) ticked.insert(url);
        return true;
    });
}

void AppStore::tickAll() {
    std::unordered_set<FileUrl> ticked;
    const auto found = piles.get().find(selectedPile.get());
    if (found != piles.get().end()) {
        for (const auto& item : found->second) ticked.insert(item.file.url);
    }
    checked.set(std::move(ticked));
}

void AppStore::tickNone() {
    checked.set({});
}

std::vector<SweepItem> AppStore::checkedItems() const {
    std::vector<SweepItem> items;
    const auto found = piles.get().find(selectedPile.get());
    if (found == piles.get().end()) return items;
    std::copy_if(found->second.begin(), found->second.end(), std::back_inserter(items),
                 [&](const SweepItem& item) { return checked.get().contains(item.file.url); });
    return items;
}

}  // namespace nookwise
