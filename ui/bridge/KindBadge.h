// A file's kind as the screens draw it.
#pragma once

#include "platform/FileUrl.h"

#include <QString>

namespace nookwise {

/// What is drawn in place of a picture of the file.
struct KindBadge {
    /// The group of extensions by which asset and label colour are found: "pdf".
    QString group;
    /// Short and in upper case.
    QString label;

    friend bool operator==(const KindBadge&, const KindBadge&) = default;
};

KindBadge kindBadge(const FileUrl& file);

}  // namespace nookwise
