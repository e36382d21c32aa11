#include "model/ByteSum.h"

#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr auto most = std::numeric_limits<std::int64_t>::max();

TEST(ByteSum, addsAndMultipliesUpToTheLimit) {
    EXPECT_EQ(byteSum(2, 3), 5);
    EXPECT_EQ(byteSum(most - 1, 1), most);
    EXPECT_EQ(byteProduct(10, 3), 30);
    EXPECT_EQ(byteProduct(most, 1), most);
    EXPECT_EQ(byteProduct(most, 0), 0);
}

TEST(ByteSumDeathTest, stopsTheProgramInsteadOfWrapping) {
    EXPECT_DEATH(byteSum(most, 1), "overflow");
    EXPECT_DEATH(byteProduct(most / 2, 3), "overflow");
}

}  // namespace
}  // namespace nookwise
