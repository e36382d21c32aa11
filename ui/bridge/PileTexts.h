// What the screens call the piles, beside their titles.
#pragma once

#include "model/PileKind.h"

#include <QString>

namespace nookwise {

/// The stored name of a pile, by which assets and colours are found.
QString pileName(PileKind kind);
/// One line on what lies in the pile: "older than a month".
QString pileLabel(PileKind kind);
/// For legends: "Installers".
QString pileShortTitle(PileKind kind);

}  // namespace nookwise
