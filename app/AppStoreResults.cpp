#include "app/AppStore.h"

namespace nookwise {
namespace {

/// All that the texts are changed at.
std::vector<FileUrl> changedPlaces(const Relocation& moved, const UrlSet& replaced) {
    std::vector<FileUrl> places(replaced.begin(), replaced.end());
    places.reserve(places.size() + 2 * moved.size());
    for (const auto& [from, to] : moved) places.insert(places.end(), {from, to});
    return places;
}

}  // namespace

KnownFiles AppStore::knownFiles() const {
    return {files.get(), piles.get(), texts.get()};
}

void AppStore::removeFromResults(const UrlSet& urls) {
    const auto gone = withContents(urls, knownFiles());
    const auto remove = [&](auto& from) { return removeFrom(from, gone); };
    files.mutate(remove);
    const std::vector<FileUrl> changed(gone.begin(), gone.end());
    for (auto* field : {&texts, &lowerTexts, &sources}) corpus_.mutate(*field, changed, remove);
    rebuildLibrary();
    piles.mutate(remove);
    checked.mutate(remove);
    duplicates.mutate(remove);
    renameFiles.mutate([&](std::optional<std::vector<FileItem>>& chosen) {
        if (!chosen || !remove(*chosen)) return false;
        if (chosen->empty()) chosen.reset();
        return true;
    });
    restartScan();
}

void AppStore::relocate(const Relocation& moved) {
    const auto places = withContents(moved, knownFiles());
    const auto replaced = replacedBy(places, files.get(), piles.get());
    relocateIndex(places);
    const auto move = [&](auto& in) {
        const bool isAnyReplaced = removeFrom(in, replaced);
        return nookwise::relocate(in, places) || isAnyReplaced;
    };
    files.mutate(move);
    piles.mutate(move);
    const auto changed = changedPlaces(places, replaced);
    for (auto* field : {&texts, &lowerTexts, &sources}) corpus_.mutate(*field, changed, move);
    duplicates.mutate(move);
    checked.mutate(move);
    renameFiles.mutate([&](auto& chosen) {
        if (!chosen || !move(*chosen)) return false;
        if (chosen->empty()) chosen.reset();
        return true;
    });
    rebuildLibrary();
    restartScan();
    // The files that it has still to read are elsewhere.
    if (isIndexing_) startIndexing();
}

}  // namespace nookwise
