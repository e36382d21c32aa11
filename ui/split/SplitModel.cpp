#include "ui/split/SplitModel.h"

#include "ui/bridge/ShownText.h"

#include <QQmlEngine>
#include <utility>

namespace nookwise {

namespace {

constexpr const char* source = "Split view";

}  // namespace

SplitModel::Menu::Menu(SplitModel& split, const Platform& platform)
    : FileMenu(split.store_, platform, source), split_(split) {}

void SplitModel::Menu::open() const {
    const auto selected = split_.activeSide().selectedItems();
    const bool isFolder = selected.size() == 1 && selected.front().isFolder;
    if (!isFolder) return FileMenu::open();
    split_.active()->open(split_.active()->currentRow());
}

SplitModel::SplitModel(std::shared_ptr<AppStore> store, const Platform& platform)
    : store_(*store),
      view_(std::move(store), platform),
      left_(store_, view_, SplitView::Side::left, platform),
      right_(store_, view_, SplitView::Side::right, platform),
      menu_(*this, platform) {
    for (QObject* part : std::initializer_list<QObject*>{&left_, &right_, &menu_})
        QQmlEngine::setObjectOwnership(part, QQmlEngine::CppOwnership);
    connect(&left_, &PaneModel::changed, this, &SplitModel::changed);
    connect(&right_, &PaneModel::changed, this, &SplitModel::changed);
    subscriptions_.push_back(store_.transferring.observe([this] { emit changed(); }));
}

bool SplitModel::canPass() const {
    const bool isAnywhereElse = view_.left.folder.get() != view_.right.folder.get();
    return isAnywhereElse && activeSide().selectedCount() > 0 && !store_.transferring.get();
}

QString SplitModel::sentence() const {
    const int count = activeSide().selectedCount();
    const QString selected = count > 0 ? shownCount(count) : QStringLiteral("Nothing");
    return selected + QStringLiteral(" selected in ") + activeSide().name();
}

QString SplitModel::caption() const {
    if (activeSide().selectedCount() == 0) return {};
    const QString bytes = activeSide().selectedBytesText();
    const QString goes = QStringLiteral("oes to ") + otherSide().place();
    return bytes.isEmpty() ? u'G' + goes : bytes + QStringLiteral(", g") + goes;
}

void SplitModel::moveSelected() {
    if (canPass()) view_.transferSelected(TransferKind::move);
}

void SplitModel::copySelected() {
    if (canPass()) view_.transferSelected(TransferKind::copy);
}

std::vector<FileItem> SplitModel::selectedFiles() const {
    std::vector<FileItem> files;
    for (const auto& item : activeSide().selectedItems())
        files.push_back({.url = item.url, .size = item.size, .added = item.date});
    return files;
}

void SplitModel::trashSelected() {
    auto files = selectedFiles();
    if (!files.empty()) store_.requestTrash(std::move(files), std::nullopt, source);
}

bool SplitModel::pointMenu() {
    menu_.setFiles(selectedFiles());
    return menu_.any();
}

}  // namespace nookwise
