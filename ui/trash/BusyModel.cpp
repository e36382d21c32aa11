#include "ui/trash/BusyModel.h"

#include "ui/bridge/ShownText.h"

namespace nookwise {

BusyModel::BusyModel(AppStore& store)
    : store_(store), busy_(store.busy.observe([this] { emit changed(); })) {}

double BusyModel::fraction() const {
    const auto& progress = store_.busy.get();
    if (!progress || progress->total == 0) return 0;
    return static_cast<double>(progress->done) / static_cast<double>(progress->total);
}

QString BusyModel::countText() const {
    const auto& progress = store_.busy.get();
    if (!progress) return {};
    return shownCount(static_cast<std::int64_t>(progress->done)) + QStringLiteral(" of ") +
           shownCount(static_cast<std::int64_t>(progress->total));
}

}  // namespace nookwise
