#include "ui/bridge/PilesModel.h"

#include "ui/bridge/PileTexts.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

namespace {

QString sizeText(const PileFigures& pile) {
    return pile.count == 0 ? QStringLiteral("nothing") : shownBytes(pile.bytes);
}

std::int64_t itemCount(const AppStore& store, PileKind kind) {
    if (kind == PileKind::duplicates) return store.duplicateCopies();
    const auto pile = store.piles.get().find(kind);
    return pile == store.piles.get().end() ? 0 : static_cast<std::int64_t>(pile->second.size());
}

}  // namespace

PilesModel::PilesModel(AppStore& store)
    : store_(store),
      rows_({{"name", [](const PileFigures& pile) { return pileName(pile.kind); }},
             {"title", [](const PileFigures& pile) { return shown(title(pile.kind)); }},
             {"label", [](const PileFigures& pile) { return pileLabel(pile.kind); }},
             {"size", [](const PileFigures& pile) { return sizeText(pile); }},
             {"count", [](const PileFigures& pile) { return static_cast<qlonglong>(pile.count); }},
             {"selected", [](const PileFigures& pile) { return pile.selected; }}}) {
    subscriptions_.push_back(store.piles.observe([this] { refresh(); }));
    subscriptions_.push_back(store.duplicates.observe([this] { refresh(); }));
    subscriptions_.push_back(store.selectedPile.observe([this] { markSelected(); }));
    subscriptions_.push_back(store.section.observe([this] { markSelected(); }));
    refresh();
}

const PileFigures& PilesModel::figures(PileKind kind) const {
    return rows_.rows().at(static_cast<std::size_t>(kind));
}

std::vector<PileFigures> PilesModel::largestFirst() const {
    std::vector<PileFigures> piles = rows_.rows();
    std::erase_if(piles, [](const PileFigures& pile) { return pile.count == 0; });
    std::stable_sort(piles.begin(), piles.end(),
                     [](const PileFigures& a, const PileFigures& b) { return a.bytes > b.bytes; });
    return piles;
}

void PilesModel::open(int row) {
    if (row < 0 || row >= rows_.rowCount()) return;
    open(rows_.rows()[static_cast<std::size_t>(row)].kind);
}

void PilesModel::open(PileKind kind) {
    store_.select(kind);
}

void PilesModel::refresh() {
    std::vector<PileFigures> rows;
    for (const PileKind kind : allPileKinds) {
        rows.push_back({kind, store_.bytes(kind), itemCount(store_, kind), kind == shownPile()});
    }
    total_ = store_.sweepTotal();
    rows_.setRows(std::move(rows));
    emit changed();
}

void PilesModel::markSelected() {
    std::vector<PileFigures> rows = rows_.rows();
    for (PileFigures& row : rows) row.selected = row.kind == shownPile();
    rows_.setRows(std::move(rows));
}

PileKind PilesModel::shownPile() const {
    return store_.section.get() == AppSection::duplicates ? PileKind::duplicates
                                                          : store_.selectedPile.get();
}

}  // namespace nookwise
