#include "app/Results.h"

#include "app/HoldingFolders.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

bool moveTo(FileUrl& url, const Relocation& moved) {
    const auto found = moved.find(url);
    if (found == moved.end() || found->second == url) return false;
    url = found->second;
    return true;
}

bool removeFromGroup(DuplicateGroup& group, const UrlSet& gone) {
    const bool changed = removeFrom(group.files, gone);
    if (group.keptFile() != nullptr || group.files.empty()) return changed;
    group.keep = group.files.front().url;
    return true;
}

bool relocateGroup(DuplicateGroup& group, const Relocation& moved) {
    bool changed = relocate(group.files, moved);
    changed |= moveTo(group.keep, moved);
    return changed;
}

/// The known files inside the given folders, and for each the folder that takes it along. Texts are
/// looked through only where one of `urls` is unknown otherwise: that takes longer.
using Contents = std::vector<std::pair<const FileUrl*, const FileUrl*>>;

template <typename Urls>
Contents contentsOf(HoldingFolders& folders, const Urls& urls, const KnownFiles& known) {
    Contents contents;
    std::unordered_set<const FileUrl*> seen;
    const FileUrl* last = nullptr;
    const auto look = [&](const FileUrl& url) {
        const auto* itself = folders.find(url.path());
        const auto* folder = itself == nullptr ? folders.holding(url.path()) : itself;
        if (folder == nullptr) return;
        if (folder != std::exchange(last, folder)) seen.insert(folder);
        if (itself == nullptr) contents.emplace_back(&url, folder);
    };
    for (const auto& file : known.files) look(file.url);
    for (const auto& [kind, items] : known.piles) {
        for (const auto& item : items) look(item.file.url);
    }
    if (seen.size() < urls.size()) {
        for (const auto& [url, text] : known.texts) look(url);
    }
    return contents;
}

}  // namespace

Relocation withContents(Relocation moved, const KnownFiles& known) {
    HoldingFolders folders;
    for (const auto& [from, to] : moved) folders.add(from);
    const auto contents = contentsOf(folders, moved, known);
    moved.reserve(moved.size() + contents.size());
    const FileUrl* lastFolder = nullptr;
    const FileUrl* lastPlace = nullptr;
    for (const auto& [url, folder] : contents) {
        if (folder != std::exchange(lastFolder, folder)) lastPlace = &moved.at(*folder);
        moved.try_emplace(*url, lastPlace->append(url->path().substr(folder->path().size() + 1)));
    }
    return moved;
}

UrlSet withContents(UrlSet gone, const KnownFiles& known) {
    HoldingFolders folders;
    for (const auto& url : gone) folders.add(url);
    for (const auto& [url, folder] : contentsOf(folders, gone, known)) gone.insert(*url);
    return gone;
}

UrlSet replacedBy(const Relocation& moved, std::span<const FileItem> files, const Piles& piles) {
    UrlSet places;
    for (const auto& [from, to] : moved) places.insert(to);
    const TextsByUrl noTexts;
    places = withContents(std::move(places), {files, piles, noTexts});
    std::erase_if(places, [&](const FileUrl& place) { return moved.contains(place); });
    return places;
}

bool removeFrom(std::vector<FileItem>& files, const UrlSet& gone) {
    return std::erase_if(files, [&](const FileItem& file) { return gone.contains(file.url); }) > 0;
}

bool removeFrom(Piles& piles, const UrlSet& gone) {
    bool changed = false;
    for (auto& [kind, items] : piles) {
        changed |= std::erase_if(items, [&](const SweepItem& item) {
                       return gone.contains(item.file.url);
                   }) > 0;
    }
    return changed;
}

bool removeFrom(UrlSet& ticked, const UrlSet& gone) {
    bool changed = false;
    for (const auto& url : gone) changed |= ticked.erase(url) > 0;
    return changed;
}

bool removeFrom(TextsByUrl& texts, const UrlSet& gone) {
    bool changed = false;
    for (const auto& url : gone) changed |= texts.erase(url) > 0;
    return changed;
}

bool removeFrom(std::vector<DuplicateGroup>& groups, const UrlSet& gone) {
    bool changed = false;
    for (auto& group : groups) changed |= removeFromGroup(group, gone);
    const auto isNoGroup = [](const DuplicateGroup& group) { return group.files.size() < 2; };
    return std::erase_if(groups, isNoGroup) > 0 || changed;
}

bool relocate(std::vector<FileItem>& files, const Relocation& moved) {
    bool changed = false;
    for (auto& file : files) changed |= moveTo(file.url, moved);
    return changed;
}

bool relocate(Piles& piles, const Relocation& moved) {
    bool changed = false;
    for (auto& [kind, items] : piles) {
        for (auto& item : items) changed |= moveTo(item.file.url, moved);
    }
    return changed;
}

bool relocate(UrlSet& ticked, const Relocation& moved) {
    // All old places first: one file's old place may be another's new one.
    std::vector<FileUrl> places;
    for (const auto& [from, to] : moved) {
        if (from != to && ticked.erase(from) > 0) places.push_back(to);
    }
    ticked.insert(places.begin(), places.end());
    return !places.empty();
}

bool relocate(TextsByUrl& texts, const Relocation& moved) {
    std::vector<std::pair<FileUrl, SharedBytes>> relocated;
    for (const auto& [from, to] : moved) {
        if (from == to) continue;
        if (auto text = texts.extract(from)) relocated.emplace_back(to, std::move(text.mapped()));
    }
    for (auto& [url, text] : relocated) texts.insert_or_assign(url, std::move(text));
    return !relocated.empty();
}

bool relocate(std::vector<DuplicateGroup>& groups, const Relocation& moved) {
    bool changed = false;
    for (auto& group : groups) changed |= relocateGroup(group, moved);
    return changed;
}

}  // namespace nookwise
