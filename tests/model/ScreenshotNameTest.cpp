#include "model/ScreenshotName.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(LooksLikeScreenshot, byTheBeginningOfTheNameInAnyCase) {
    for (const auto* name :
         {"Screenshot 2024-01-01 at 10.00.00.png", "screenshot", "SCREENSHOT.PNG",
          "screenshots.png", "Screen Shot 2019-05-05 at 9.41.00.png", "CleanShot 2023@2x.png",
          "cleanshot.gif", "Снимок экрана 2024-01-01.png", "СНИМОК ЭКРАНА.png",
          "Screenshot\xff\xfe.png"}) {
        EXPECT_TRUE(looksLikeScreenshot(name)) << name;
    }
}

TEST(LooksLikeScreenshot, notByTheWordElsewhereNorByOtherNames) {
    for (const auto* name : {"My screenshot.png", " screenshot.png", "Screen.png",
                             "Screen  Shot.png", "Screen-shot.png", "Снимок.png", "IMG_0001.png",
                             "", "Bildschirmfoto.png", "\xffscreenshot.png"}) {
        EXPECT_FALSE(looksLikeScreenshot(name)) << name;
    }
}

}  // namespace
}  // namespace nookwise
