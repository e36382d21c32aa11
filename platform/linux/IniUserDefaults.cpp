#include "platform/linux/IniUserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace nookwise {
namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// No name when something else than a file is there: opening a pipe would wait for its other end.
/// The settings then last as long as the process.
QString usableName(const FileUrl& file) {
    const std::string path(file.path());
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) return {};
    return QFile::decodeName(path.c_str());
}

/// Later writing keeps the permissions. Does nothing where the file is already there.
void createForOwner(const QString& name) {
    if (name.isEmpty()) return;
    QDir().mkpath(QFileInfo(name).path());
    QFile(name).open(QIODevice::WriteOnly | QIODevice::NewOnly,
                     QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace

FileUrl userDefaultsFile(const BaseFolders& folders) {
    return folders.configHome.append("Nookwise").append("Nookwise.ini");
}

IniUserDefaults::IniUserDefaults(const FileUrl& file)
    : settings_(usableName(file), QSettings::IniFormat) {
    // Asking for the keys is what makes it look at every line.
    (void)settings_.allKeys();
    isBroken_ = settings_.status() == QSettings::FormatError;
}

void IniUserDefaults::putBrokenFileAside() {
    if (!isBroken_) return;
    isBroken_ = false;
    // Fails where an earlier one lies there: that one is more likely to hold something.
    QFile::rename(settings_.fileName(), settings_.fileName() + QStringLiteral(".broken"));
    settings_.clear();
}

std::optional<bool> IniUserDefaults::boolean(std::string_view key) const {
    const auto value = string(key);
    if (value == "true") return true;
    if (value == "false") return false;
    return std::nullopt;
}

void IniUserDefaults::setBoolean(std::string_view key, bool value) {
    // As text, so that it reads the same before and after it has been through the file.
    setString(key, value ? "true" : "false");
}

std::optional<std::string> IniUserDefaults::string(std::string_view key) const {
    if (isBroken_) return std::nullopt;
    const auto value = settings_.value(text(key));
    if (value.typeId() != QMetaType::QString) return std::nullopt;
    return value.toString().toStdString();
}

void IniUserDefaults::setString(std::string_view key, std::string_view value) {
    putBrokenFileAside();
    settings_.setValue(text(key), text(value));
    createForOwner(settings_.fileName());
    // Otherwise a killed process would lose it.
    settings_.sync();
}

void IniUserDefaults::removeAllWithPrefix(std::string_view prefix) {
    if (isBroken_) return;
    const auto beginning = text(prefix);
    const auto keys = settings_.allKeys();
    for (const auto& key : keys) {
        if (key.startsWith(beginning)) settings_.remove(key);
    }
    settings_.sync();
}

}  // namespace nookwise
