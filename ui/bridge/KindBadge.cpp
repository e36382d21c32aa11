#include "ui/bridge/KindBadge.h"

#include "model/FileKind.h"
#include "ui/bridge/ShownText.h"

namespace nookwise {

namespace {

QString groupName(FileKindGroup group) {
    switch (group) {
        case FileKindGroup::pdf:
            return QStringLiteral("pdf");
        case FileKindGroup::image:
            return QStringLiteral("image");
        case FileKindGroup::clip:
            return QStringLiteral("clip");
        case FileKindGroup::audio:
            return QStringLiteral("audio");
        case FileKindGroup::archive:
            return QStringLiteral("archive");
        case FileKindGroup::installer:
            return QStringLiteral("installer");
        case FileKindGroup::sheet:
            return QStringLiteral("sheet");
        case FileKindGroup::doc:
            return QStringLiteral("doc");
        case FileKindGroup::slides:
            return QStringLiteral("slides");
        case FileKindGroup::rtf:
            return QStringLiteral("rtf");
        case FileKindGroup::code:
            return QStringLiteral("code");
        case FileKindGroup::app:
            return QStringLiteral("app");
        case FileKindGroup::other:
            return QStringLiteral("other");
    }
    return {};
}

}  // namespace

KindBadge kindBadge(const FileUrl& file) {
    const FileKind kind(file.pathExtension());
    return {groupName(kind.group), shownName(kind.label)};
}

}  // namespace nookwise
