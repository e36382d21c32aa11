#include "ui/transfer/TransferModel.h"

#include "ui/bridge/ShownText.h"

namespace nookwise {
namespace {

constexpr int spokenStep = 10;

double ratio(double part, double whole) {
    return part / whole;
}

}  // namespace

TransferModel::TransferModel(AppStore& store)
    : store_(store), progress_(store.transferProgress.observe([this] { progressChanged(); })) {}

double TransferModel::fraction() const {
    const auto& progress = store_.transferProgress.get();
    if (!progress) return -1;
    const auto total = progress->bytesTotal.value_or(0);
    if (total > 0)
        return ratio(static_cast<double>(progress->bytesDone), static_cast<double>(total));
    if (progress->filesTotal > 1)
        return ratio(static_cast<double>(progress->filesDone),
                     static_cast<double>(progress->filesTotal));
    return -1;
}

QString TransferModel::text() const {
    if (!running()) return {};
    if (stopping_) return QStringLiteral("Stopping…");
    const auto bytes = bytesText();
    if (bytes.isEmpty()) return countText();
    if (store_.transferProgress.get()->filesTotal == 1) return bytes;
    return countText() + QStringLiteral(" · ") + bytes;
}

QString TransferModel::spokenText() const {
    if (!running()) return {};
    if (stopping_) return QStringLiteral("Stopping…");
    const auto known = fraction();
    if (known < 0) return countText();
    const int percent = static_cast<int>(known * 100) / spokenStep * spokenStep;
    return countText() + QStringLiteral(", %1 per cent").arg(percent);
}

void TransferModel::cancel() {
    store_.cancelTransfer();
    stopping_ = running();
    emit changed();
}

void TransferModel::progressChanged() {
    if (!running()) stopping_ = false;
    emit changed();
}

QString TransferModel::countText() const {
    const auto& progress = *store_.transferProgress.get();
    return QStringLiteral("%1 of %2")
        .arg(shownCount(static_cast<std::int64_t>(progress.filesDone)),
             shownCount(static_cast<std::int64_t>(progress.filesTotal)));
}

QString TransferModel::bytesText() const {
    const auto& progress = *store_.transferProgress.get();
    const auto total = progress.bytesTotal.value_or(0);
    if (total > 0)
        return QStringLiteral("%1 of %2").arg(shownBytes(progress.bytesDone), shownBytes(total));
    return progress.bytesDone > 0 ? shownBytes(progress.bytesDone) : QString();
}

}  // namespace nookwise
