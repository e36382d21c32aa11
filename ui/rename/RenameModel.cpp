#include "ui/rename/RenameModel.h"

#include "ui/bridge/ShownText.h"

#include <QScopedValueRollback>
#include <utility>

namespace nookwise {

RenameModel::RenameModel(AppStore& store) : store_(store) {
    subscriptions_.push_back(store.renameFiles.observe([this] { filesChanged(); }));
    subscriptions_.push_back(store.texts.observe([this] { plan(); }));
    subscriptions_.push_back(store.section.observe([this] { cancel(); }));
    filesChanged();
}

void RenameModel::setUseText(bool use) {
    auto options = options_;
    options.useText = use;
    setOptions(options);
}

void RenameModel::setUseDate(bool use) {
    auto options = options_;
    options.useDate = use;
    setOptions(options);
}

void RenameModel::setDashed(bool dashed) {
    auto options = options_;
    options.dashed = dashed;
    setOptions(options);
}

Qt::CheckState RenameModel::tickState() const {
    if (rows_.tickedCount() == 0) return Qt::Unchecked;
    return rows_.tickedCount() == rows_.rowCount() ? Qt::Checked : Qt::PartiallyChecked;
}

QString RenameModel::tickedText() const {
    return shownCount(rows_.tickedCount()) + QStringLiteral(" of ") + shownCount(rows_.rowCount());
}

QString RenameModel::renameText() const {
    return QStringLiteral("Rename ") + shownFiles(rows_.tickedCount());
}

void RenameModel::turn(int row) {
    rows_.turn(row);
    emit ticksChanged();
}

void RenameModel::tickAll() {
    rows_.tickAll();
    emit ticksChanged();
}

void RenameModel::tickNone() {
    rows_.tickNone();
    emit ticksChanged();
}

void RenameModel::turnAll() {
    if (rows_.tickedCount() == rows_.renamingCount())
        tickNone();
    else
        tickAll();
}

void RenameModel::cancel() {
    store_.renameFiles.set(std::nullopt);
}

void RenameModel::apply() {
    if (!canRename()) return;
    const auto rows = rows_.tickedRows();
    {
        const QScopedValueRollback applying(isApplying_, true);
        store_.applyRenames(rows);
    }
    cancel();
}

void RenameModel::filesChanged() {
    if (isApplying_) return;
    const bool opens = store_.renameFiles.get().has_value();
    const bool wasOpen = std::exchange(isOpen_, opens);
    if (wasOpen != opens) {
        lines_ = {};
        rows_.setPlan({});
        setOptions({});
    }
    plan();
    if (wasOpen != opens) emit openChanged();
}

void RenameModel::setOptions(const RenameOptions& options) {
    if (options == options_) return;
    options_ = options;
    plan();
    emit planned();
}

void RenameModel::plan() {
    const auto& files = store_.renameFiles.get();
    if (!files || isApplying_) return;
    rows_.setPlan(makePlan(*files, store_.texts.get(), options_, lines_));
    emit ticksChanged();
}

}  // namespace nookwise
