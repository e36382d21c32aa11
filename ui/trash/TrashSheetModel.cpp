#include "ui/trash/TrashSheetModel.h"

#include "ui/bridge/PileTexts.h"
#include "ui/bridge/ShownText.h"

namespace nookwise {

TrashSheetModel::TrashSheetModel(AppStore& store)
    : store_(store), request_(store.pendingTrash.observe([this] { requestChanged(); })) {}

QString TrashSheetModel::pile() const {
    return open() && request()->pile ? pileName(*request()->pile) : QString();
}

int TrashSheetModel::count() const {
    return open() ? static_cast<int>(request()->files.size()) : 0;
}

QString TrashSheetModel::title() const {
    return open() ? shown(request()->title) : QString();
}

QString TrashSheetModel::detail() const {
    return open() ? shown(request()->detail) : QString();
}

QString TrashSheetModel::switchText() const {
    if (!open()) return {};
    return QStringLiteral("Don’t ask again for ") +
           (request()->pile ? shown(noun(*request()->pile)) : QStringLiteral("this"));
}

void TrashSheetModel::setDontAskAgain(bool dontAskAgain) {
    if (dontAskAgain == dontAskAgain_) return;
    dontAskAgain_ = dontAskAgain;
    emit changed();
}

void TrashSheetModel::confirm() {
    if (!open()) return;
    store_.confirm(*request(),
                   dontAskAgain_ ? AppStore::NextTime::goAhead : AppStore::NextTime::ask);
}

void TrashSheetModel::cancel() {
    store_.dismissTrash();
}

const TrashRequest* TrashSheetModel::request() const {
    const auto& pending = store_.pendingTrash.get();
    return pending ? &*pending : nullptr;
}

void TrashSheetModel::requestChanged() {
    dontAskAgain_ = false;
    emit changed();
}

}  // namespace nookwise
