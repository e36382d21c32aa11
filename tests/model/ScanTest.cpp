#include "model/Scan.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(ScanProgress, beginsEmpty) {
    const ScanProgress progress;
    EXPECT_EQ(progress.folder, "");
    EXPECT_EQ(progress.filesSeen, 0);
    EXPECT_EQ(progress.fraction, 0.0);
    EXPECT_EQ(progress.step, "");
}

TEST(ScanProgress, isEqualOverAllFields) {
    const ScanProgress progress{"Desktop", 400, 0.25, "Reading Desktop"};
    EXPECT_EQ(progress, (ScanProgress{"Desktop", 400, 0.25, "Reading Desktop"}));
    EXPECT_NE(progress, (ScanProgress{"Documents", 400, 0.25, "Reading Desktop"}));
    EXPECT_NE(progress, (ScanProgress{"Desktop", 401, 0.25, "Reading Desktop"}));
    EXPECT_NE(progress, (ScanProgress{"Desktop", 400, 0.26, "Reading Desktop"}));
    EXPECT_NE(progress, (ScanProgress{"Desktop", 400, 0.25, "Done"}));
}

}  // namespace
}  // namespace nookwise
