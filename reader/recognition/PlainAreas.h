// Evens out the areas of one colour that interfaces are made of.
#pragma once

#include "reader/recognition/Pictures.h"

namespace nookwise {

/// Makes every plain area white and what stands on it dark, whichever of the two was the darker:
/// menus, selected rows, bubbles and bars of other colours than the rest then read like the rest.
/// Changes nothing and returns false when too little of the picture is plain, as in photographs.
bool evenOutPlainAreas(GreyPicture& picture);

}  // namespace nookwise
