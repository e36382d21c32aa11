#include "ui/sweep/ClearedModel.h"

#include "ui/bridge/PileTexts.h"
#include "ui/bridge/ShownText.h"

namespace nookwise {

namespace {

/// The cards tell piles apart by what lies in them and by how much it is.
QString countText(const PileFigures& pile) {
    return pile.kind == PileKind::duplicates ? shownCopies(pile.count) : shownFiles(pile.count);
}

}  // namespace

ClearedModel::ClearedModel(AppStore& store, PilesModel& piles)
    : store_(store),
      piles_(piles),
      rows_({{"name", [](const PileFigures& pile) { return pileName(pile.kind); }},
             {"title", [](const PileFigures& pile) { return shown(title(pile.kind)); }},
             {"size", [](const PileFigures& pile) { return shownBytes(pile.bytes); }},
             {"count", [](const PileFigures& pile) { return static_cast<qlonglong>(pile.count); }},
             {"countText", [](const PileFigures& pile) { return countText(pile); }}}),
      justCleared_(store.justCleared.observe([this] { emit changed(); })),
      selectedPile_(store.selectedPile.observe([this] { emit changed(); })) {
    connect(&piles, &PilesModel::changed, this, &ClearedModel::refresh);
    refresh();
}

bool ClearedModel::cleared() const {
    const auto& last = store_.justCleared.get();
    return last && last->pile == store_.selectedPile.get() && piles_.figures(last->pile).count == 0;
}

QString ClearedModel::size() const {
    const auto& last = store_.justCleared.get();
    return last ? shownBytes(last->bytes) : QString();
}

QString ClearedModel::tail() const {
    return rows_.rows().empty() ? QStringLiteral(" is back. Everything is clean.")
                                : QStringLiteral(" is back. Next up:");
}

QString ClearedModel::nextTitle() const {
    return rows_.rows().empty() ? QString() : shown(title(rows_.rows().front().kind));
}

void ClearedModel::open(int row) {
    if (row < 0 || row >= rows_.rowCount()) return;
    // By value: opening a pile may change the rows.
    const PileKind kind = rows_.rows()[static_cast<std::size_t>(row)].kind;
    piles_.open(kind);
}

void ClearedModel::openHome() {
    store_.section.set(AppSection::home);
}

void ClearedModel::openActivity() {
    store_.section.set(AppSection::activity);
}

void ClearedModel::refresh() {
    rows_.setRows(piles_.largestFirst());
    emit changed();
}

}  // namespace nookwise
