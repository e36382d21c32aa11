#include "ui/bridge/ShownText.h"

#include "model/Fmt.h"

#include <QLocale>
#include <QStringList>

namespace nookwise {

bool isNotDrawn(QChar character) {
    const auto category = character.category();
    const char16_t unit = character.unicode();
    const bool turnsDirection = unit == 0x200E || unit == 0x200F ||
                                (unit >= 0x202A && unit <= 0x202E) ||
                                (unit >= 0x2066 && unit <= 0x2069);
    return turnsDirection || category == QChar::Other_Control ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

QString shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString shownName(std::string_view bytes) {
    QString name = shown(bytes);
    for (QChar& character : name) {
        if (isNotDrawn(character)) character = QChar::ReplacementCharacter;
    }
    return name;
}

QString shownCount(std::int64_t count) {
    // The texts are English whatever the user's locale, and so are their numbers.
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    return english.toString(static_cast<qlonglong>(count));
}

QString shownFiles(std::int64_t count) {
    return count == 1 ? QStringLiteral("1 file") : shownCount(count) + QStringLiteral(" files");
}

QString shownCopies(std::int64_t count) {
    return count == 1 ? QStringLiteral("1 copy") : shownCount(count) + QStringLiteral(" copies");
}

QString shownBytes(std::int64_t bytes) {
    return shown(Fmt::bytes(bytes));
}

QString shownFolderOf(const FileUrl& file, const FileUrl& home) {
    return shownName(Fmt::shortPath(file.parent(), home));
}

QString spokenFolderOf(const FileUrl& file, const FileUrl& home) {
    const FileUrl folder = file.parent();
    if (folder == home) return QStringLiteral("Home");
    QString path = shownName(folder.path());
    if (folder.isWithin(home)) path.remove(0, shownName(home.path()).size());
    return path.split(u'/', Qt::SkipEmptyParts).join(QStringLiteral(", "));
}

}  // namespace nookwise
