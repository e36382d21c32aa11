#include "tests/architecture/IncludeRules.h"

#include <gmock/gmock.h>

namespace nookwise {
namespace {

TEST(Includes, pointDownwardsOnly) {
    EXPECT_THAT(wrongIncludes(NOOKWISE_SOURCE_DIR), testing::IsEmpty());
}

TEST(Includes, areLookedAtInEveryRoom) {
    EXPECT_GT(filesUnderARule(NOOKWISE_SOURCE_DIR), 40u);
}

// The fixture is a tree in which every line that says "wrong" is, and no other.
TEST(IncludeRules, findEveryWrongIncludeAndNoOther) {
    EXPECT_THAT(
        wrongIncludes(NOOKWISE_FIXTURE_DIR),
        testing::ElementsAre(
            "app/Upwards.cpp:1: ui/Window.h", "app/Upwards.cpp:2: tools/Demo.h",
            "app/Upwards.cpp:3: platform/linux/LinuxFileManager.h",
            "fileops/Sibling.h:1: search/Index.h", "model/Relative.h:1: ../platform/FileUrl.h",
            "model/Relative.h:2: FileItem.h", "model/Upwards.h:1: scan/Walk.h",
            "model/Upwards.h:2: app/AppStore.h", "platform/Upwards.h:1: model/FileItem.h",
            "platform/Upwards.h:2: platform/linux/LinuxFileManager.h",
            "platform/UsesQt.h:1: QString", "platform/UsesQt.h:2: QtCore/QString",
            "platform/UsesQt.h:3: QtCore", "platform/UsesQt.h:4: QUrl",
            "platform/linux/Upwards.cpp:1: model/FileItem.h", "scan/Siblings.cpp:1: search/Index.h",
            "scan/Siblings.cpp:2: fileops/Trash.h", "scan/Siblings.cpp:3: app/AppStore.h",
            "scan/Siblings.cpp:4: tests/support/FakeFileManager.h",
            "scan/deeper/Hidden.cpp:2: QObject", "search/Sibling.h:1: scan/Walk.h",
            "ui/Window.cpp:1: platform/linux/LinuxFileManager.h",
            "ui/Window.cpp:2: tests/support/FakeFileManager.h"));
}

}  // namespace
}  // namespace nookwise
