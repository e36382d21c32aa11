#include "app/Pane.h"

#include "platform/Tasks.h"
#include "platform/UserFolders.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

/// The folder that a pane shows above `folder`. Both are standardized.
FileUrl folderAbove(const FileUrl& folder, const FileUrl& home) {
    auto above = folder.parent();
    return home.isWithin(above) ? home : above;
}

/// Where a pane goes whose folder is gone.
FileUrl nearestFolder(const FileManager& files, FileUrl folder, const FileUrl& home) {
    while (folder != home && !files.exists(folder)) folder = folderAbove(folder, home);
    return folder;
}

/// Keeps the selected URLs that are among the items. Returns whether any is gone.
bool keepListed(std::unordered_set<FileUrl>& selection, const std::vector<Pane::Item>& items) {
    if (selection.empty()) return false;
    const auto isSelected = [&](const Pane::Item& item) { return selection.contains(item.url); };
    const auto listed = std::ranges::count_if(items, isSelected);
    if (static_cast<std::size_t>(listed) == selection.size()) return false;
    std::unordered_set<FileUrl> kept;
    for (const auto& item : items) {
        if (auto node = selection.extract(item.url)) kept.insert(std::move(node));
    }
    selection = std::move(kept);
    return true;
}

template <typename T>
void swapUntold(Observable<T>& a, Observable<T>& b) {
    a.mutate([&](T& first) {
        b.mutate([&](T& second) {
            std::swap(first, second);
            return false;
        });
        return false;
    });
}

template <typename T>
void tell(Observable<T>& value) {
    value.mutate([](T&) { return true; });
}

}  // namespace

struct Pane::Landing {
    Pane* pane;
};

struct Pane::Listing {
    /// The folder that the pane showed at the start.
    FileUrl asked;
    /// The folder that was listed in the end.
    FileUrl listed;
    std::vector<Item> items;
};

Pane::Pane(const Platform& platform, FileUrl url)
    : folder(std::move(url)), platform_(platform), landing_(new Landing{this}) {}

Pane::~Pane() {
    loadStop_.request_stop();
}

void Pane::reload() {
    list(WhenGone::staysEmpty, std::nullopt);
}

void Pane::follow(std::optional<FileUrl> newPlace) {
    list(WhenGone::givesWay, std::move(newPlace));
}

void Pane::list(WhenGone whenGone, std::optional<FileUrl> newPlace) {
    loadStop_.request_stop();
    loadStop_ = std::stop_source();
    loading.set(true);
    platform_.tasks.detach(
        TaskPriority::userInitiated,
        [weak = std::weak_ptr(landing_), &files = platform_.files, &tasks = platform_.tasks,
         asked = folder.get(), whenGone, newPlace = std::move(newPlace),
         home = platform_.folders.home().standardized(), stop = loadStop_.get_token()] {
            auto listed = asked;
            if (whenGone == WhenGone::givesWay && !files.exists(asked)) {
                const bool isMoved = newPlace && files.exists(*newPlace);
                listed = isMoved ? *newPlace : nearestFolder(files, asked.standardized(), home);
            }
            // Shared, because what is posted may be copied on its way.
            auto listing =
                std::make_shared<Listing>(Listing{asked, listed, listFolder(files, listed, stop)});
            tasks.post([weak, listing, stop] {
                const auto landing = weak.lock();
                if (landing && !stop.stop_requested())
                    landing->pane->land(std::move(*listing), stop);
            });
        });
}

void Pane::land(Listing&& listing, const std::stop_token& stop) {
    if (listing.asked != folder.get()) return;
    // Whoever is told may ask for another folder, or end the pane.
    folder.set(listing.listed);
    if (stop.stop_requested()) return;
    listed_ = std::move(listing.listed);
    items.set(std::move(listing.items));
    if (stop.stop_requested()) return;
    selection.mutate([&](auto& selected) { return keepListed(selected, items.get()); });
    if (!stop.stop_requested()) loading.set(false);
}

void Pane::open(const FileUrl& url) {
    selection.set({});
    folder.set(url);
    reload();
}

bool Pane::canGoUp() const {
    return folder.get().standardized() != platform_.folders.home().standardized();
}

void Pane::goUp() {
    if (!canGoUp()) return;
    open(folderAbove(folder.get().standardized(), platform_.folders.home().standardized()));
}

void Pane::exchangeWith(Pane& other) {
    for (auto* pane : {this, &other}) pane->loadStop_.request_stop();
    swapUntold(folder, other.folder);
    std::swap(listed_, other.listed_);
    swapUntold(items, other.items);
    swapUntold(selection, other.selection);
    for (auto* pane : {this, &other}) {
        tell(pane->folder);
        tell(pane->items);
        tell(pane->selection);
    }
}

std::vector<FileUrl> Pane::selectedInOrder() const {
    std::vector<FileUrl> urls;
    for (const auto& item : items.get()) {
        if (selection.get().contains(item.url)) urls.push_back(item.url);
    }
    return urls;
}

}  // namespace nookwise
