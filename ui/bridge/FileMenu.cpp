#include "ui/bridge/FileMenu.h"

#include "platform/Workspace.h"
#include "search/IndexCandidates.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/TextInside.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace nookwise {

namespace {

constexpr std::size_t mostOpened = 20;

bool canHoldText(const FileItem& file) {
    return textCarrier(file.url) != TextCarrier::none;
}

}  // namespace

FileMenu::FileMenu(AppStore& store, const Platform& platform, std::string source)
    : store_(store),
      platform_(platform),
      source_(std::move(source)),
      texts_(store.texts.observe([this] { noteText(); })) {}

bool FileMenu::canOpen() const {
    return any() && files_.size() <= mostOpened;
}

bool FileMenu::canRename() const {
    return std::ranges::any_of(files_, canHoldText);
}

void FileMenu::setFiles(std::vector<FileItem> files) {
    const bool same = std::ranges::equal(files_, files, {}, &FileItem::url, &FileItem::url);
    files_ = std::move(files);
    if (same) return noteText();
    canCopyText_ = !fromFirstLetter(text().view()).empty();
    emit changed();
    emit replaced();
}

void FileMenu::open() const {
    if (!canOpen()) return;
    for (const FileItem& file : files_) platform_.workspace.open(file.url);
}

void FileMenu::showInFolder() const {
    std::vector<FileUrl> urls;
    std::ranges::transform(files_, std::back_inserter(urls), &FileItem::url);
    if (any()) platform_.workspace.reveal(urls);
}

void FileMenu::renameByText() const {
    std::vector<FileItem> files;
    std::ranges::copy_if(files_, std::back_inserter(files), canHoldText);
    if (!files.empty()) store_.renameFiles.set(std::move(files));
}

void FileMenu::copyText() const {
    if (canCopyText_) QGuiApplication::clipboard()->setText(shown(text().view()));
}

void FileMenu::moveToTrash() const {
    store_.requestTrash(files_, std::nullopt, source_);
}

SharedBytes FileMenu::text() const {
    return files_.size() == 1 ? textInside(store_.texts.get(), files_.front().url) : SharedBytes();
}

void FileMenu::noteText() {
    const bool canCopy = !fromFirstLetter(text().view()).empty();
    if (std::exchange(canCopyText_, canCopy) != canCopy) emit changed();
}

}  // namespace nookwise
