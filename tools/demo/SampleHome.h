// The sample home: a pottery and survey studio's folders in need of tidying.
#pragma once

#include "platform/Date.h"
#include "platform/Result.h"
#include "tools/demo/AgreedFiles.h"

namespace nookwise::demo {

/// Fills an empty folder. Needs a QGuiApplication, for its fonts. Ages count from `now`.
Result<AgreedFiles> makeSampleHome(const FileUrl& home, Date now);

}  // namespace nookwise::demo
