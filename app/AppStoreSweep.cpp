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

void AppStore::setKeep(std::string_view groupID, const FileUrl& url) {
    duplicates.mutate([&](std::vector<DuplicateGroup>& groups) {
        const auto hasId = [&](const DuplicateGroup& group) { return group.id == groupID; };
        // Two groups may have one id. The other one would offer all of its copies for removal.
        auto group = std::ranges::find_if(groups, [&](const DuplicateGroup& candidate) {
            return hasId(candidate) &&
                   std::ranges::find(candidate.files, url, &FileItem::url) != candidate.files.end();
        });
        if (group == groups.end()) group = std::ranges::find_if(groups, hasId);
        if (group == groups.end() || group->keep == url) return false;
        group->keep = url;
        return true;
    });
}

void AppStore::trashDuplicates(const std::vector<DuplicateGroup>& groups) {
    std::vector<FileItem> extras;
    for (const auto& group : groups) {
        for (auto& extra : group.extras()) extras.push_back(std::move(extra));
    }
    requestTrash(std::move(extras), PileKind::duplicates, title(PileKind::duplicates));
}

}  // namespace nookwise
