#include "ui/split/FileListMime.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace nookwise {

namespace {

constexpr QLatin1StringView listType("text/uri-list");

/// Some programs end lines with a line feed alone, and the list with a NUL.
bool isPadding(char character) {
    return character == '\r' || character == ' ' || character == '\t' || character == '\0';
}

std::string_view trimmed(std::string_view line) {
    while (!line.empty() && isPadding(line.front())) line.remove_prefix(1);
    while (!line.empty() && isPadding(line.back())) line.remove_suffix(1);
    return line;
}

/// What such a path names depends on links, which its text does not show.
bool climbs(std::string_view path) {
    return path.ends_with("/..") || path.find("/../") != std::string_view::npos;
}

}  // namespace

QByteArray fileList(const std::vector<FileUrl>& files) {
    QByteArray list;
    for (const auto& file : files) {
        list.append(QByteArray::fromStdString(file.urlString()));
        list.append("\r\n");
    }
    return list;
}

std::vector<FileUrl> filesIn(const QByteArray& list) {
    std::vector<FileUrl> files;
    std::unordered_set<FileUrl> seen;
    std::string_view rest(list.constData(), static_cast<std::size_t>(list.size()));
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\n'), rest.size());
        // A comment begins with '#', which no address does.
        const auto file = FileUrl::fromUrlString(trimmed(rest.substr(0, end)));
        if (file && !climbs(file->path()) && seen.insert(file->standardized()).second)
            files.push_back(file->standardized());
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return files;
}

std::vector<FileUrl> filesIn(const QMimeData& data) {
    if (const auto* own = qobject_cast<const FileListMime*>(&data)) return own->files();
    return data.hasFormat(listType) ? filesIn(data.data(listType)) : std::vector<FileUrl>();
}

QStringList FileListMime::formats() const {
    return {listType};
}

bool FileListMime::hasFormat(const QString& format) const {
    return format == listType;
}

QVariant FileListMime::retrieveData(const QString& format, QMetaType) const {
    return format == listType ? QVariant(fileList(files_)) : QVariant();
}

}  // namespace nookwise
