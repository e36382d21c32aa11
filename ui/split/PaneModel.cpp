#include "ui/split/PaneModel.h"

#include "model/ByteSum.h"
#include "model/Fmt.h"
#include "platform/Clock.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace nookwise {

namespace {

/// A folder that is read sooner is not said to be read at all.
constexpr std::chrono::milliseconds patience{200};

/// In the order of the list, which may be long: looks no further than the last one.
template <typename Visit>
void forEachSelected(const Pane& pane, Visit visit) {
    const auto& urls = pane.selection.get();
    auto left = urls.size();
    for (const auto& item : pane.items.get()) {
        if (left == 0) return;
        if (!urls.contains(item.url)) continue;
        --left;
        visit(item);
    }
}

}  // namespace

PaneModel::PaneModel(AppStore& store, SplitView& view, SplitView::Side side,
                     const Platform& platform)
    : store_(store),
      view_(view),
      side_(side),
      platform_(platform),
      pane_(view.pane(side)),
      rows_(pane_) {
    subscriptions_.push_back(pane_.folder.observe([this] { emit changed(); }));
    subscriptions_.push_back(pane_.items.observe([this] {
        rows_.setNow(platform_.clock.now());
        rows_.itemsChanged();
        countSelected();
        emit currentRowChanged();
    }));
    subscriptions_.push_back(pane_.selection.observe([this] {
        rows_.selectionChanged();
        countSelected();
    }));
    subscriptions_.push_back(pane_.loading.observe([this] { loadingChanged(); }));
    subscriptions_.push_back(view_.active.observe([this] { emit changed(); }));
}

QString PaneModel::name() const {
    return shownName(pane_.folder.get().lastPathComponent());
}

QString PaneModel::place() const {
    return shownName(Fmt::shortPath(pane_.folder.get(), platform_.folders.home()));
}

QString PaneModel::art() const {
    const auto& folder = pane_.folder.get();
    if (folder == platform_.folders.desktop()) return QStringLiteral("desktop");
    if (folder == platform_.folders.documents()) return QStringLiteral("documents");
    if (folder == platform_.folders.downloads()) return QStringLiteral("downloads");
    return QStringLiteral("folder");
}

QString PaneModel::status() const {
    QStringList facts;
    if (isListed()) facts += shownCount(rows_.rowCount()) + QStringLiteral(" items");
    if (selectedCount() > 0) {
        facts += shownCount(selectedCount()) + QStringLiteral(" selected");
        if (filesSelected_) facts += selectedBytesText();
    }
    return facts.join(QStringLiteral(" · "));
}

QString PaneModel::spoken() const {
    const bool isLeft = side_ == SplitView::Side::left;
    QStringList parts{isLeft ? QStringLiteral("Left side") : QStringLiteral("Right side"), name()};
    if (active()) parts += QStringLiteral("active");
    return parts.join(QStringLiteral(", "));
}

QString PaneModel::selectedBytesText() const {
    return filesSelected_ ? shownBytes(selectedBytes_) : QString();
}

int PaneModel::currentRow() const {
    const auto row = selection_.currentRow(pane_.items.get());
    return row && isListed() ? static_cast<int>(*row) : -1;
}

std::vector<Pane::Item> PaneModel::selectedItems() const {
    std::vector<Pane::Item> selected;
    forEachSelected(pane_, [&](const Pane::Item& item) { selected.push_back(item); });
    return selected;
}

void PaneModel::loadingChanged() {
    if (!pane_.loading.get()) return landed();
    readingDelay_ = platform_.tasks.after(patience, [this] {
        reading_ = true;
        emit readingChanged();
    });
}

void PaneModel::landed() {
    readingDelay_.reset();
    if (reading_) {
        reading_ = false;
        emit readingChanged();
    }
    rows_.setNow(platform_.clock.now());
    const bool isAnother = shown_ != pane_.folder.get();
    if (isAnother) {
        shown_ = pane_.folder.get();
        selection_.clear();
        const auto& items = pane_.items.get();
        const auto left = std::ranges::find(items, left_, &Pane::Item::url);
        if (left != items.end())
            select(static_cast<std::size_t>(left - items.begin()), SelectionMode::replace);
        left_ = {};
    }
    emit changed();
    emit currentRowChanged();
    if (isAnother) emit shownAnew();
}

const Pane::Item* PaneModel::item(int row) const {
    const auto& items = pane_.items.get();
    const bool exists = isListed() && row >= 0 && static_cast<std::size_t>(row) < items.size();
    return exists ? &items[static_cast<std::size_t>(row)] : nullptr;
}

void PaneModel::countSelected() {
    selectedBytes_ = 0;
    filesSelected_ = false;
    forEachSelected(pane_, [this](const Pane::Item& selected) {
        if (selected.isFolder) return;
        filesSelected_ = true;
        selectedBytes_ = byteSum(selectedBytes_, selected.size);
    });
    emit changed();
}

void PaneModel::select(std::size_t row, SelectionMode mode) {
    if (!isListed()) return;
    pane_.selection.set(selection_.select(pane_.items.get(), row, mode, pane_.selection.get()));
    emit currentRowChanged();
}

void PaneModel::press(int row, uint modifiers) {
    activate();
    pressed_.reset();
    const bool isShift = (modifiers & Qt::ShiftModifier) != 0;
    const bool isCtrl = (modifiers & Qt::ControlModifier) != 0;
    const Pane::Item* found = item(row);
    if (found == nullptr) {
        if (!isShift && !isCtrl) selectNone();
        return;
    }
    const auto place = static_cast<std::size_t>(row);
    if (isShift) return select(place, isCtrl ? SelectionMode::add : SelectionMode::extend);
    const auto mode = isCtrl ? SelectionMode::toggle : SelectionMode::replace;
    if (!pane_.selection.get().contains(found->url)) return select(place, mode);
    pressed_ = {found->url, mode};
}

void PaneModel::release() {
    if (!pressed_) return;
    const auto [url, mode] = *pressed_;
    pressed_.reset();
    const auto& items = pane_.items.get();
    const auto found = std::ranges::find(items, url, &Pane::Item::url);
    if (found != items.end()) select(static_cast<std::size_t>(found - items.begin()), mode);
}

void PaneModel::pressForMenu(int row) {
    activate();
    pressed_.reset();
    const Pane::Item* found = item(row);
    if (found == nullptr) return selectNone();
    const bool isSelected = pane_.selection.get().contains(found->url);
    select(static_cast<std::size_t>(row),
           isSelected ? SelectionMode::keep : SelectionMode::replace);
}

bool PaneModel::beginDrag(int row) {
    pressed_.reset();
    const Pane::Item* found = item(row);
    if (found == nullptr || !pane_.selection.get().contains(found->url)) return false;
    dragged_ = *found;
    dragBadge_ = kindBadge(found->url);
    emit dragChanged();
    return true;
}

QString PaneModel::dragName() const {
    return dragged_.url.empty() ? QString() : shownName(dragged_.url.lastPathComponent());
}

void PaneModel::step(Step step, uint modifiers, int page) {
    constexpr std::array steps{RowStep::previous, RowStep::next,  RowStep::pageUp,
                               RowStep::pageDown, RowStep::first, RowStep::last};
    const auto row = selection_.rowAfter(pane_.items.get(), steps[static_cast<std::size_t>(step)],
                                         static_cast<std::size_t>(std::max(page, 1)));
    if (!row) return;
    const bool isShift = (modifiers & Qt::ShiftModifier) != 0;
    const bool isCtrl = (modifiers & Qt::ControlModifier) != 0;
    const auto alone = isCtrl ? SelectionMode::keep : SelectionMode::replace;
    const auto range = isCtrl ? SelectionMode::add : SelectionMode::extend;
    select(*row, isShift ? range : alone);
}

void PaneModel::toggleCurrent() {
    const auto row = selection_.currentRow(pane_.items.get());
    select(row.value_or(0), SelectionMode::toggle);
}

void PaneModel::selectAll() {
    if (isListed()) pane_.selection.set(ListSelection::selectAll(pane_.items.get()));
}

void PaneModel::selectNone() {
    pane_.selection.set({});
}

bool PaneModel::type(const QString& typed) {
    const Date now = platform_.clock.now();
    const bool isSpace = typed == QStringLiteral(" ");
    if (typed.isEmpty() || isNotDrawn(typed.front()) || (isSpace && !typeAhead_.isTyping(now)))
        return false;
    const auto& items = pane_.items.get();
    const auto row = typeAhead_.type(typed.toStdString(), now, items, selection_.currentRow(items));
    if (row) select(*row, SelectionMode::replace);
    return true;
}

void PaneModel::open(int row) {
    const Pane::Item* found = item(row);
    if (found == nullptr) return;
    if (!found->isFolder) return platform_.workspace.open(found->url);
    left_ = {};
    pane_.open(FileUrl(found->url));
}

void PaneModel::goUp() {
    left_ = pane_.folder.get();
    pane_.goUp();
}

void PaneModel::activate() {
    view_.active.set(side_);
}

bool PaneModel::isFolder(int row) const {
    const Pane::Item* found = item(row);
    return found != nullptr && found->isFolder;
}

FileUrl PaneModel::dropFolder(int row) const {
    return isFolder(row) ? item(row)->url : pane_.folder.get();
}

bool PaneModel::takes(const std::vector<FileUrl>& files, const FileUrl& folder) const {
    if (store_.transferring.get() || files.empty()) return false;
    const bool isInItself =
        std::ranges::any_of(files, [&](const auto& file) { return folder.isWithin(file); });
    const bool isThere = std::ranges::all_of(
        files, [&](const auto& file) { return file.parentPath() == folder.path(); });
    return !isInItself && !isThere;
}

void PaneModel::drop(const std::vector<FileUrl>& files, const FileUrl& folder, TransferKind kind) {
    if (folder == pane_.folder.get()) return view_.drop(files, side_, kind);
    view_.dropInto(files, folder, kind);
}

}  // namespace nookwise
