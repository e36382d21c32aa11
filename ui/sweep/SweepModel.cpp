#include "ui/sweep/SweepModel.h"

#include "model/ByteSum.h"
#include "ui/bridge/PileTexts.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

namespace {

constexpr std::size_t stripBlocks = 9;

}  // namespace

SweepModel::SweepModel(AppStore& store, const FileUrl& home, PilesModel& piles)
    : store_(store),
      piles_(piles),
      ticked_(store),
      rows_(ticked_, home),
      strip_({{"row", [](const Block& block) { return block.row; }},
              {"name", [](const Block& block) { return block.name; }},
              {"from", [](const Block& block) { return block.from; }},
              {"to", [](const Block& block) { return block.to; }},
              {"ticked", [](const Block& block) { return block.ticked; }}}) {
    subscriptions_.push_back(store.piles.observe([this] { reload(); }));
    subscriptions_.push_back(store.selectedPile.observe([this] { showPile(); }));
    subscriptions_.push_back(store.phase.observe([this] { emit ticksChanged(); }));
    subscriptions_.push_back(store.checked.observe([this] { checkedChanged(); }));
    connect(&piles, &PilesModel::changed, this, &SweepModel::largestChanged);
    showPile();
}

QString SweepModel::pile() const {
    return pileName(store_.selectedPile.get());
}

QString SweepModel::title() const {
    return shown(nookwise::title(store_.selectedPile.get()));
}

QString SweepModel::subtitle() const {
    return shown(nookwise::subtitle(store_.selectedPile.get()));
}

QString SweepModel::totalText() const {
    return shownBytes(ticked_.bytes());
}

QString SweepModel::countText() const {
    return shownFiles(ticked_.size());
}

QString SweepModel::emptyText() const {
    return QStringLiteral("No ") + shown(noun(store_.selectedPile.get())) +
           QStringLiteral(" to clean right now. We’ll check again next time you open Nookwise.");
}

QString SweepModel::largestText() const {
    const auto piles = piles_.largestFirst();
    if (piles.empty()) return {};
    return shown(nookwise::title(piles.front().kind)) + QStringLiteral(" · ") +
           shownBytes(piles.front().bytes);
}

Qt::CheckState SweepModel::tickState() const {
    if (ticked_.tickedCount() == 0) return Qt::Unchecked;
    return ticked_.tickedCount() == ticked_.size() ? Qt::Checked : Qt::PartiallyChecked;
}

QString SweepModel::tickedText() const {
    return shownCount(ticked_.tickedCount()) + QStringLiteral(" of ") + shownCount(ticked_.size()) +
           QStringLiteral(" ticked");
}

QString SweepModel::comesBackText() const {
    if (ticked_.tickedCount() == 0) return QStringLiteral("Nothing ticked");
    return shownBytes(ticked_.tickedBytes()) + QStringLiteral(" comes back");
}

QString SweepModel::staysText() const {
    const int staying = ticked_.size() - ticked_.tickedCount();
    if (staying == 0) return {};
    return shownFiles(staying) + (staying == 1 ? QStringLiteral(" stays where it is")
                                               : QStringLiteral(" stay where they are"));
}

QString SweepModel::trashText() const {
    const QString selected = canTrash()
                                 ? shownCount(ticked_.tickedCount()) + QStringLiteral(" · ") +
                                       shownBytes(ticked_.tickedBytes())
                                 : shownCount(0);
    return QStringLiteral("Trash selected (") + selected + u')';
}

bool SweepModel::canTrash() const {
    return ticked_.tickedCount() > 0 && store_.phase.get() != AppStore::Phase::scanning;
}

double SweepModel::stripShare() const {
    std::int64_t bytes = 0;
    for (const Block& block : strip_.rows()) {
        const SweepItem* item = ticked_.item(block.row);
        if (item != nullptr) bytes = byteSum(bytes, item->file.size);
    }
    return static_cast<double>(bytes) /
           static_cast<double>(std::max<std::int64_t>(ticked_.bytes(), 1));
}

QString SweepModel::stripRestText() const {
    return stripRest() > 0 ? u'+' + shownCount(stripRest()) : QString();
}

QString SweepModel::spokenStrip() const {
    QStringList parts;
    for (const Block& block : strip_.rows()) {
        const SweepItem* item = ticked_.item(block.row);
        if (item != nullptr) parts += block.name + u' ' + shownBytes(item->file.size);
    }
    if (stripRest() > 0) parts += shownCount(stripRest()) + QStringLiteral(" more");
    return parts.join(QStringLiteral(", "));
}

void SweepModel::toggle(int row) {
    const SweepItem* item = ticked_.item(row);
    if (item == nullptr) return;
    turning_ = row;
    store_.toggle(item->file.url);
    turning_.reset();
}

void SweepModel::selectAll() {
    store_.tickAll();
}

void SweepModel::selectNone() {
    store_.tickNone();
}

void SweepModel::trashTicked() {
    std::vector<FileItem> files;
    for (SweepItem& item : store_.checkedItems()) files.push_back(std::move(item.file));
    const PileKind kind = store_.selectedPile.get();
    store_.requestTrash(std::move(files), kind, nookwise::title(kind));
}

void SweepModel::openLargest() {
    const auto piles = piles_.largestFirst();
    if (!piles.empty()) piles_.open(piles.front().kind);
}

void SweepModel::showPile() {
    ticked_.reload();
    rows_.pileReplaced();
    pileReloaded();
}

void SweepModel::reload() {
    ticked_.reload();
    rows_.pileChanged();
    pileReloaded();
}

void SweepModel::pileReloaded() {
    refreshStrip();
    emit pileChanged();
    emit ticksChanged();
}

void SweepModel::checkedChanged() {
    if (turning_) {
        rows_.ticksChanged(ticked_.turned(*turning_));
    } else {
        ticked_.recount();
        rows_.allTicksChanged();
    }
    markStrip();
    emit ticksChanged();
}

void SweepModel::refreshStrip() {
    const std::vector<int> rows = ticked_.largest(stripBlocks);
    std::int64_t total = 0;
    for (const int row : rows) total = byteSum(total, ticked_.item(row)->file.size);
    std::vector<Block> blocks;
    std::int64_t bytes = 0;
    const auto part = [&] {
        return static_cast<double>(bytes) / static_cast<double>(std::max<std::int64_t>(total, 1));
    };
    for (const int row : rows) {
        const FileItem& file = ticked_.item(row)->file;
        const double from = part();
        bytes = byteSum(bytes, file.size);
        blocks.push_back({row, shownName(file.url.stem()), from, part(), ticked_.ticked(row)});
    }
    strip_.setRows(std::move(blocks));
}

void SweepModel::markStrip() {
    std::vector<Block> blocks = strip_.rows();
    for (Block& block : blocks) block.ticked = ticked_.ticked(block.row);
    strip_.setRows(std::move(blocks));
}

}  // namespace nookwise
