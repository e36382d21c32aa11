#include "ui/bridge/PileTexts.h"

#include "ui/bridge/ShownText.h"

namespace nookwise {

QString pileName(PileKind kind) {
    return shown(rawValue(kind));
}

QString pileLabel(PileKind kind) {
    switch (kind) {
        case PileKind::forgotten:
            return QStringLiteral("untouched 90+ days");
        case PileKind::installers:
            return QStringLiteral("apps already installed");
        case PileKind::screenshots:
            return QStringLiteral("older than a month");
        case PileKind::large:
            return QStringLiteral("over 500 MB each");
        case PileKind::duplicates:
            return QStringLiteral("exact copies");
    }
    return {};
}

QString pileShortTitle(PileKind kind) {
    switch (kind) {
        case PileKind::forgotten:
            return QStringLiteral("Forgotten");
        case PileKind::installers:
            return QStringLiteral("Installers");
        case PileKind::screenshots:
            return QStringLiteral("Screenshots");
        case PileKind::large:
            return QStringLiteral("Large files");
        case PileKind::duplicates:
            return QStringLiteral("Copies");
    }
    return {};
}

}  // namespace nookwise
