#include "model/Counted.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(Counted, hasTheSingularForExactlyOne) {
    EXPECT_EQ(countedFiles(0), "0 files");
    EXPECT_EQ(countedFiles(1), "1 file");
    EXPECT_EQ(countedFiles(2), "2 files");
    EXPECT_EQ(countedFiles(12'345), "12345 files");
    EXPECT_EQ(counted(1, "copy", "copies"), "1 copy");
    EXPECT_EQ(counted(3, "copy", "copies"), "3 copies");
}

}  // namespace
}  // namespace nookwise
