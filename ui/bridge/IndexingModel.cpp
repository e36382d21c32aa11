#include "ui/bridge/IndexingModel.h"

#include "ui/bridge/ShownText.h"

namespace nookwise {

QString IndexingModel::text() const {
    const auto& indexing = store_.indexing.get();
    if (!indexing) return {};
    return QStringLiteral("Reading text in images and PDFs · %1 of %2")
        .arg(shownCount(static_cast<std::int64_t>(indexing->done)),
             shownCount(static_cast<std::int64_t>(indexing->total)));
}

double IndexingModel::fraction() const {
    const auto& indexing = store_.indexing.get();
    if (!indexing || indexing->total == 0) return 0;
    return static_cast<double>(indexing->done) / static_cast<double>(indexing->total);
}

}  // namespace nookwise
