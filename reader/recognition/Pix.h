// Leptonica's pictures, owned.
#pragma once

#include <memory>

#include <allheaders.h>

namespace nookwise {

struct PixDestroyer {
    void operator()(Pix* pix) const { pixDestroy(&pix); }
};
using PixPointer = std::unique_ptr<Pix, PixDestroyer>;

}  // namespace nookwise
