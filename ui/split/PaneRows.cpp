#include "ui/split/PaneRows.h"

#include "model/Fmt.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ReplacedRows.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace nookwise {

namespace {

std::vector<FileUrl> urlsOf(const std::vector<Pane::Item>& items) {
    std::vector<FileUrl> urls;
    urls.reserve(items.size());
    for (const auto& item : items) urls.push_back(item.url);
    return urls;
}

/// More changes than that, one after the other, take longer than making the rows anew.
constexpr std::size_t mostRuns = 64;

struct Run {
    int first = 0;
    int count = 0;
};

/// Runs of the numbers from `first` to `end` that a test accepts.
template <typename Test>
std::vector<Run> runsOf(int first, int end, Test accepts) {
    std::vector<Run> runs;
    for (int number = first; number < end; ++number) {
        if (!accepts(number)) continue;
        const bool isNext = !runs.empty() && runs.back().first + runs.back().count == number;
        if (!isNext) runs.push_back({.first = number});
        ++runs.back().count;
    }
    return runs;
}

/// Where the files of the rows are in the new list, or -1. All of the changed rows are -1 where
/// they changed their order.
std::vector<int> placesOf(const std::vector<FileUrl>& before, const std::vector<FileUrl>& after,
                          const ReplacedRows& changed) {
    std::unordered_map<FileUrl, int> fresh;
    for (std::size_t i = changed.first; i < changed.first + changed.inserted; ++i)
        fresh.emplace(after[i], static_cast<int>(i));
    std::vector<int> places(before.size());
    int last = -1;
    bool isOrdered = true;
    for (std::size_t row = 0; row < before.size(); ++row) {
        const bool isChanged = row >= changed.first && row < changed.first + changed.removed;
        if (isChanged) {
            const auto found = fresh.find(before[row]);
            places[row] = found == fresh.end() ? -1 : found->second;
            isOrdered = isOrdered && (places[row] < 0 || places[row] > last);
            last = std::max(last, places[row]);
        } else {
            const bool isBefore = row < changed.first;
            places[row] =
                static_cast<int>(isBefore ? row : row - changed.removed + changed.inserted);
        }
    }
    if (isOrdered) return places;
    const auto first = places.begin() + static_cast<std::ptrdiff_t>(changed.first);
    std::fill(first, first + static_cast<std::ptrdiff_t>(changed.removed), -1);
    return places;
}

QString spokenText(const Pane::Item& item, const QString& age) {
    const QString what = item.isFolder ? QStringLiteral("folder") : shownBytes(item.size);
    QStringList parts{shownName(item.url.lastPathComponent()), what};
    if (item.date) parts += age;
    return parts.join(QStringLiteral(", "));
}

}  // namespace

int PaneRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

const Pane::Item* PaneRows::item(int row) const {
    if (row < 0 || row >= count_) return nullptr;
    const auto& items = pane_.items.get();
    const int place = places_.empty() ? row : places_[static_cast<std::size_t>(row)];
    const bool exists = place >= 0 && static_cast<std::size_t>(place) < items.size();
    return exists ? &items[static_cast<std::size_t>(place)] : nullptr;
}

QVariant PaneRows::data(const QModelIndex& index, int role) const {
    const Pane::Item* found = item(index.row());
    if (found == nullptr) return {};
    switch (role) {
        case name:
            return shownName(found->url.lastPathComponent());
        case age:
            return shown(Fmt::ago(found->date, now_));
        case size:
            return found->isFolder ? QString() : shownBytes(found->size);
        case folder:
            return found->isFolder;
        case kindGroup:
            return kindBadge(found->url).group;
        case kindLabel:
            return kindBadge(found->url).label;
        case selected:
            return pane_.selection.get().contains(found->url);
        case spoken:
            return spokenText(*found, shown(Fmt::ago(found->date, now_)));
        default:
            return {};
    }
}

QHash<int, QByteArray> PaneRows::roleNames() const {
    return {{name, "name"},           {age, "age"},
            {size, "size"},           {folder, "folder"},
            {kindGroup, "kindGroup"}, {kindLabel, "kindLabel"},
            {selected, "selected"},   {spoken, "spoken"}};
}

void PaneRows::itemsChanged() {
    auto urls = urlsOf(pane_.items.get());
    if (listed_ != pane_.listed()) {
        beginResetModel();
        listed_ = pane_.listed();
        urls_ = std::move(urls);
        count_ = static_cast<int>(urls_.size());
        endResetModel();
        return;
    }
    replace(urls);
    urls_ = std::move(urls);
    // Sizes, dates and ages may be new.
    tellAll({});
}

void PaneRows::replace(const std::vector<FileUrl>& urls) {
    const auto changed = replacedRows(urls_, urls);
    const auto first = static_cast<int>(changed.first);
    const auto removedEnd = static_cast<int>(changed.first + changed.removed);
    const auto insertedEnd = static_cast<int>(changed.first + changed.inserted);
    places_ = placesOf(urls_, urls, changed);
    const std::unordered_set<int> kept(places_.begin() + first, places_.begin() + removedEnd);
    const auto isGone = [this](int row) { return places_[static_cast<std::size_t>(row)] < 0; };
    auto gone = runsOf(first, removedEnd, isGone);
    auto come = runsOf(first, insertedEnd, [&](int place) { return !kept.contains(place); });
    if (gone.size() + come.size() > mostRuns) {
        gone = {{first, removedEnd - first}};
        come = {{first, insertedEnd - first}};
    }
    // From the last on, so that the rows before keep their numbers.
    std::ranges::reverse(gone);
    for (const auto& run : gone) remove(run.first, run.count);
    for (const auto& run : come) insert(run.first, run.count);
    places_.clear();
}

void PaneRows::remove(int first, int count) {
    if (count == 0) return;
    beginRemoveRows({}, first, first + count - 1);
    places_.erase(places_.begin() + first, places_.begin() + first + count);
    count_ -= count;
    endRemoveRows();
}

void PaneRows::insert(int first, int count) {
    if (count == 0) return;
    beginInsertRows({}, first, first + count - 1);
    const auto made = places_.insert(places_.begin() + first, static_cast<std::size_t>(count), 0);
    std::iota(made, made + count, first);
    count_ += count;
    endInsertRows();
}

void PaneRows::setNow(Date now) {
    if (std::exchange(now_, now) != now) tellAll({age, spoken});
}

void PaneRows::selectionChanged() {
    tellAll({selected});
}

void PaneRows::tellAll(const QList<int>& roles) {
    if (count_ > 0) emit dataChanged(index(0), index(count_ - 1), roles);
}

}  // namespace nookwise
