#include "ui/bridge/DiskModel.h"

#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

DiskModel::DiskModel(AppStore& store, const PilesModel& piles)
    : store_(store),
      piles_(piles),
      free_(store.freeBytes.observe([this] { emit changed(); })),
      total_(store.totalBytes.observe([this] { emit changed(); })) {
    connect(&piles, &PilesModel::changed, this, &DiskModel::changed);
}

QString DiskModel::freeText() const {
    return shownBytes(store_.freeBytes.get());
}

QString DiskModel::totalText() const {
    return shownBytes(store_.totalBytes.get());
}

QString DiskModel::restText() const {
    return shownBytes(usedBytes() - comesBackBytes());
}

QString DiskModel::comesBackText() const {
    return shownBytes(piles_.total());
}

double DiskModel::restFraction() const {
    return fraction(usedBytes() - comesBackBytes());
}

double DiskModel::comesBackFraction() const {
    return fraction(comesBackBytes());
}

std::int64_t DiskModel::usedBytes() const {
    return std::max<std::int64_t>(store_.totalBytes.get() - store_.freeBytes.get(), 0);
}

std::int64_t DiskModel::comesBackBytes() const {
    return std::clamp<std::int64_t>(piles_.total(), 0, usedBytes());
}

double DiskModel::fraction(std::int64_t bytes) const {
    return known() ? static_cast<double>(bytes) / static_cast<double>(store_.totalBytes.get())
                   : 0.0;
}

}  // namespace nookwise
