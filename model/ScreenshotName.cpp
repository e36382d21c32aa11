#include "model/ScreenshotName.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace nookwise {

bool looksLikeScreenshot(std::string_view fileName) {
    static constexpr std::array<std::string_view, 4> beginnings{"screenshot", "screen shot",
                                                                "cleanshot", "снимок экрана"};
    const auto lower = lowercased(fileName);
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](std::string_view beginning) { return lower.starts_with(beginning); });
}

}  // namespace nookwise
