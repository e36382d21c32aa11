#include "ui/ask/AnswerModel.h"

#include "model/Fmt.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"
#include "ui/ask/AskRows.h"
#include "ui/bridge/KindBadge.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/TextInside.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <QClipboard>
#include <QGuiApplication>

namespace nookwise {

namespace {

/// What is laid out at once without a pause that is felt.
constexpr std::size_t longestShown = 30'000;

/// Each line as a paragraph of its own: rich text draws the ground of a mark at the end of a line
/// over the next one where only a line break lies between them.
QString inParagraphs(const QString& markup) {
    QString paragraphs;
    for (const QString& line : markup.split(u'\n')) {
        paragraphs += line.isEmpty()
                          ? QStringLiteral("<div style=\"-qt-paragraph-type: empty\"><br></div>")
                          : QStringLiteral("<div class=\"marked\">%1</div>").arg(line);
    }
    return paragraphs;
}

}  // namespace

AnswerModel::AnswerModel(const AppStore& store, const Platform& platform)
    : store_(store), platform_(platform) {}

QString AnswerModel::name() const {
    return file_ ? shownName(file_->url.lastPathComponent()) : QString();
}

QString AnswerModel::place() const {
    return file_ ? shownFolderOf(file_->url, platform_.folders.home()) : QString();
}

QString AnswerModel::figures() const {
    if (!file_) return {};
    return shownBytes(file_->size) + QStringLiteral(" · ") +
           shown(Fmt::ago(knownDate(*file_), now_));
}

QString AnswerModel::kindGroup() const {
    return file_ ? kindBadge(file_->url).group : QStringLiteral("other");
}

QString AnswerModel::kindLabel() const {
    return file_ ? kindBadge(file_->url).label : QString();
}

QString AnswerModel::picture() const {
    return file_ ? thumbnailSource(*file_) : QString();
}

QString AnswerModel::cutText() const {
    if (!cut_) return {};
    return QStringLiteral("The first %1 characters are shown. Copying takes the whole text.")
        .arg(shownCount(longestShown));
}

void AnswerModel::look(std::optional<FileItem> file, const std::vector<std::string>& words,
                       Date now) {
    file_ = std::move(file);
    now_ = now;
    emit changed();
    readText(file_ ? textInside(store_.texts.get(), file_->url) : SharedBytes(), words);
}

void AnswerModel::open() {
    if (file_) platform_.workspace.open(file_->url);
}

void AnswerModel::showInFolder() {
    if (file_) platform_.workspace.reveal({file_->url});
}

void AnswerModel::copyText() const {
    if (hasText()) QGuiApplication::clipboard()->setText(shown(text_.view()));
}

void AnswerModel::readText(SharedBytes text, const std::vector<std::string>& words) {
    // Answers are looked for again with every few files read, and mostly say the same.
    if (text == text_ && words == words_) return;
    text_ = std::move(text);
    words_ = words;
    const std::string_view whole = fromFirstLetter(text_.view());
    const std::string_view begin = beginning(whole, longestShown);
    cut_ = begin.size() < whole.size();
    shown_ = markedText(begin, words_);
    shown_.markup = begin.empty() ? QString() : inParagraphs(shown_.markup);
    emit textChanged();
}

}  // namespace nookwise
