#include "model/ImageExtensions.h"

#include <algorithm>
#include <array>

namespace nookwise {

bool isImageExtension(std::string_view extension) {
    static constexpr std::array<std::string_view, 8> imageExts{"png",  "jpg", "jpeg", "heic",
                                                               "tiff", "gif", "webp", "bmp"};
    return std::find(imageExts.begin(), imageExts.end(), extension) != imageExts.end();
}

}  // namespace nookwise
