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

void merge(Observable<TextsByUrl>& texts, const IndexEntries& entries,
           const SharedBytes* (*textOf)(const IndexEntry&)) {
    texts.mutate([&](TextsByUrl& known) {
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
    });
}

}  // namespace

void AppStore::startIndexing() {
    indexStop_.request_stop();
    indexStop_ = std::stop_source();
    platform_.tasks.detach(
        TaskPriority::utility,
        [weak = weak_from_this(), &tasks = platform_.tasks, indexer = indexer_,
         scanned = files.get(), soon = indexStop_.get_token(), atOnce = quitStop_.get_token()] {
            const auto onUi = [&](auto work) {
                tasks.post([weak, work = std::move(work)] {
                    if (const auto store = weak.lock()) work(*store);
                });
            };
            // What is known from earlier runs can be found before anything is read.
            inPieces(indexer->cached(scanned), [&](IndexEntries&& known) {
                onUi([known = std::move(known)](AppStore& store) { store.absorb(known); });
            });
            const auto report = [&](IndexEntries&& fresh, std::size_t done, std::size_t total) {
                onUi([fresh = std::move(fresh), done, total, soon](AppStore& store) {
                    store.absorb(fresh);
                    // A run that has been replaced keeps what it read, but has no more to say.
                    if (!soon.stop_requested()) store.indexing.set(Indexing{done, total});
                });
            };
            indexer->run(scanned, report, {.soon = soon, .atOnce = atOnce});
            onUi([soon](AppStore& store) {
                if (!soon.stop_requested()) store.indexing.set(std::nullopt);
            });
        });
}

void AppStore::absorb(const IndexEntries& entries) {
    merge(texts, entries, [](const IndexEntry& entry) { return &entry.text; });
    merge(lowerTexts, entries, [](const IndexEntry& entry) { return &entry.lowerText; });
    merge(sources, entries, [](const IndexEntry& entry) -> const SharedBytes* {
        return entry.source ? &*entry.source : nullptr;
    });
}

}  // namespace nookwise
