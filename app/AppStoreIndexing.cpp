#include "app/AppStore.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

/// So many entries are taken in within a few milliseconds of the UI thread.
constexpr std::size_t mostEntriesAtOnce = 2'000;

/// Hands out the entries in pieces that are quick to take in.
template <typename Take>
void inPieces(IndexEntries entries, Take take) {
    while (!entries.empty()) {
        IndexEntries piece;
        const auto count = std::min(entries.size(), mostEntriesAtOnce);
        piece.reserve(count);
        while (piece.size() < count) piece.insert(entries.extract(entries.begin()));
        take(std::move(piece));
    }
}

/// Runs `work` on the UI thread, unless the store has ended.
template <typename Work>
void postTo(const std::weak_ptr<AppStore>& weak, Tasks& tasks, Work work) {
    tasks.post([weak, work = std::move(work)] {
        if (const auto store = weak.lock()) work(*store);
    });
}

/// Returns whether it changed anything.
bool merge(TextsByUrl& known, const IndexEntries& entries,
           const SharedBytes* (*textOf)(const IndexEntry&)) {
    bool changed = false;
    for (const auto& [url, entry] : entries) {
        const auto* text = textOf(entry);
        if (text == nullptr) continue;
        const auto [place, isNew] = known.try_emplace(url, *text);
        if (!isNew && place->second == *text) continue;
        place->second = *text;
        changed = true;
    }
    return changed;
}

/// Makes room for the texts of so many files, and of some more. To make room when there is none
/// left takes longer than a frame, in which to take in a few texts.
void makeRoom(Observable<TextsByUrl>& texts, std::size_t files) {
    texts.mutate([files](TextsByUrl& known) {
        if (known.bucket_count() < files) known.reserve(files + files / 8);
        return false;
    });
}

}  // namespace

void AppStore::startIndexing() {
    indexStop_.request_stop();
    indexStop_ = std::stop_source();
    isIndexing_ = true;
    for (auto* field : {&texts, &lowerTexts, &sources}) makeRoom(*field, files.get().size());
    // What is known from earlier runs can be found before anything is read, and does not wait for
    // an idle computer.
    platform_.tasks.detach(TaskPriority::userInitiated,
                           [weak = weak_from_this(), &tasks = platform_.tasks, indexer = indexer_,
                            scanned = std::make_shared<const std::vector<FileItem>>(files.get()),
                            stop = indexStop_.get_token()] {
                               inPieces(indexer->cached(*scanned), [&](IndexEntries&& known) {
                                   postTo(weak, tasks,
                                          [stop, known = std::move(known)](AppStore& store) {
                                              if (!stop.stop_requested()) store.absorb(known);
                                          });
                               });
                               postTo(weak, tasks, [stop, scanned](AppStore& store) {
                                   if (!stop.stop_requested()) store.readUnread(scanned, stop);
                               });
                           });
}

void AppStore::readUnread(std::shared_ptr<const std::vector<FileItem>> scanned,
                          const std::stop_token& stop) {
    corpus_.settle();
    platform_.tasks.detach(
        TaskPriority::utility,
        [weak = weak_from_this(), &tasks = platform_.tasks, indexer = indexer_,
         scanned = std::move(scanned), soon = stop, atOnce = quitStop_.get_token()] {
            const auto report = [&](IndexEntries&& fresh, std::size_t done, std::size_t total) {
                postTo(weak, tasks, [fresh = std::move(fresh), done, total, soon](AppStore& store) {
                    store.absorb(fresh);
                    // A run that was replaced keeps what it read, but has no more to say.
                    if (!soon.stop_requested()) store.indexing.set(Indexing{done, total});
                });
            };
            indexer->run(*scanned, report, {.soon = soon, .atOnce = atOnce});
            postTo(weak, tasks, [soon](AppStore& store) {
                if (soon.stop_requested()) return;
                store.isIndexing_ = false;
                store.indexing.set(std::nullopt);
            });
        });
}

void AppStore::absorb(const IndexEntries& entries) {
    std::vector<FileUrl> urls;
    urls.reserve(entries.size());
    for (const auto& [url, entry] : entries) urls.push_back(url);
    const auto take = [&](auto& field, const SharedBytes* (*textOf)(const IndexEntry&)) {
        corpus_.mutate(field, urls,
                       [&](TextsByUrl& known) { return merge(known, entries, textOf); });
    };
    take(texts, [](const IndexEntry& entry) { return &entry.text; });
    take(lowerTexts, [](const IndexEntry& entry) { return &entry.lowerText; });
    take(sources, [](const IndexEntry& entry) -> const SharedBytes* {
        return entry.source ? &*entry.source : nullptr;
    });
}

void AppStore::relocateIndex(const Relocation& moved) {
    Relocation read;
    for (const auto& [from, to] : moved)
        if (isIndexing_ || texts.get().contains(from)) read.emplace(from, to);
    if (read.empty()) return;
    platform_.tasks.detach(TaskPriority::utility, [indexer = indexer_, read = std::move(read)] {
        indexer->relocate(read);
    });
}

}  // namespace nookwise
