#include "ui/home/HomeModel.h"

#include "model/Fmt.h"
#include "platform/Clock.h"
#include "platform/UserFolders.h"
#include "ui/bridge/PileTexts.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <algorithm>
#include <array>

namespace nookwise {

namespace {

constexpr std::size_t shownArrivals = 4;

QString inWords(std::size_t piles) {
    static const std::array words{QStringLiteral("One"), QStringLiteral("Two"),
                                  QStringLiteral("Three"), QStringLiteral("Four"),
                                  QStringLiteral("Five")};
    return words.at(piles - 1);
}

}  // namespace

HomeModel::HomeModel(AppStore& store, const Platform& platform, PilesModel& piles,
                     const ScanModel& scan)
    : store_(store),
      platform_(platform),
      piles_(piles),
      scan_(scan),
      blocks_({{"name", [](const Block& block) { return pileName(block.pile.kind); }},
               {"title", [](const Block& block) { return shown(title(block.pile.kind)); }},
               {"legend", [](const Block& block) { return pileShortTitle(block.pile.kind); }},
               {"size", [](const Block& block) { return shownBytes(block.pile.bytes); }},
               {"from", [](const Block& block) { return block.from; }},
               {"to", [](const Block& block) { return block.to; }}}),
      justLanded_({{"name", [](const Arrival& file) { return file.name; }},
                   {"place", [](const Arrival& file) { return file.place; }},
                   {"age", [](const Arrival& file) { return file.age; }},
                   {"kindGroup", [](const Arrival& file) { return file.kind.group; }},
                   {"kindLabel", [](const Arrival& file) { return file.kind.label; }},
                   {"picture", [](const Arrival& file) { return file.picture; }}}),
      arrivals_(store.justLanded.observe([this] { arrivalsChanged(); })) {
    connect(&piles, &PilesModel::changed, this, &HomeModel::pilesChanged);
    connect(&scan, &ScanModel::changed, this, &HomeModel::scanChanged);
    pilesChanged();
    scanChanged();
    arrivalsChanged();
    keepAgesTrue();
}

QString HomeModel::headline() const {
    if (clean()) return QStringLiteral("Everything is clean");
    return shownBytes(piles_.total()) + QStringLiteral(" could come back");
}

QString HomeModel::sentence() const {
    if (clean()) return QStringLiteral("No piles in Desktop, Documents and Downloads.");
    const std::size_t piles = blocks_.rows().size();
    return inWords(piles) +
           (piles == 1 ? QStringLiteral(" pile is") : QStringLiteral(" piles are")) +
           QStringLiteral(" ready to look through. Nothing moves until you say so.");
}

QString HomeModel::checkedText() const {
    if (!checked_) return {};
    const Date now = platform_.clock.now();
    if (now - *checked_ < std::chrono::minutes(1)) return QStringLiteral("checked just now");
    return QStringLiteral("checked ") + shown(Fmt::ago(checked_, now));
}

QString HomeModel::spokenBlocks() const {
    QString sentence = shownBytes(piles_.total()) + QStringLiteral(" could come back");
    for (const Block& block : blocks_.rows()) {
        sentence += QStringLiteral(", ") + pileShortTitle(block.pile.kind) + u' ' +
                    shownBytes(block.pile.bytes);
    }
    return sentence;
}

void HomeModel::reviewPiles() {
    store_.section.set(AppSection::sweep);
}

void HomeModel::pilesChanged() {
    std::vector<Block> blocks;
    const auto total = static_cast<double>(std::max<std::int64_t>(piles_.total(), 1));
    double from = 0;
    for (const PileFigures& pile : piles_.largestFirst()) {
        const double to = from + static_cast<double>(pile.bytes) / total;
        blocks.push_back({pile, from, to});
        from = to;
    }
    blocks_.setRows(std::move(blocks));
    emit changed();
}

void HomeModel::scanChanged() {
    const bool landed = wasScanning_ && !scan_.scanning();
    wasScanning_ = scan_.scanning();
    if (!landed) return;
    checked_ = platform_.clock.now();
    emit changed();
}

void HomeModel::arrivalsChanged() {
    const std::vector<FileItem>& files = store_.justLanded.get();
    const FileUrl desktop = platform_.folders.desktop();
    const Date now = platform_.clock.now();
    std::vector<Arrival> rows;
    for (std::size_t i = 0; i < std::min(files.size(), shownArrivals); ++i) {
        const FileItem& file = files[i];
        const bool onDesktop = file.url.parent() == desktop;
        rows.push_back({shownName(file.url.lastPathComponent()),
                        onDesktop ? QStringLiteral("Desktop") : QStringLiteral("Downloads"),
                        shown(Fmt::ago(file.added ? file.added : file.modified, now)),
                        kindBadge(file.url), thumbnailSource(file)});
    }
    justLanded_.setRows(std::move(rows));
}

void HomeModel::keepAgesTrue() {
    nextMinute_ = platform_.tasks.after(std::chrono::minutes(1), [this] {
        arrivalsChanged();
        emit changed();
        keepAgesTrue();
    });
}

}  // namespace nookwise
