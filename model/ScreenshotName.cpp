#include "model/ScreenshotName.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace nookwise {

bool looksLikeScreenshot(std::string_view fileName) {
    static constexpr std::array<std::string_view, 4> beginnings{"screenshot", "screen shot",
                                                                "cleanshot", "снимок экрана"};
    // All pictures of a home are asked about after each action, and most begin otherwise: "с" is
    // 0xD1 0x81, "С" 0xD0 0xA1.
    if (fileName.find_first_of("sScC\xD0\xD1") != 0) return false;
    const auto lower = lowercased(fileName);
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](std::string_view beginning) { return lower.starts_with(beginning); });
}

}  // namespace nookwise
