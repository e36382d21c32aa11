#include "platform/Result.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(Result, holdsAValue) {
    Result<std::string> result(std::string("value"));
    ASSERT_TRUE(static_cast<bool>(result));
    EXPECT_EQ(result.value(), "value");
}

TEST(Result, holdsTheReasonWhyThereIsNone) {
    const Result<int> result(
        FileError{std::make_error_code(std::errc::permission_denied), FileUrl("/a"), "open"});
    ASSERT_FALSE(static_cast<bool>(result));
    EXPECT_EQ(result.error().code, std::errc::permission_denied);
    EXPECT_EQ(result.error().url, FileUrl("/a"));
    EXPECT_EQ(result.error().operation, "open");
}

TEST(Result, holdsValuesThatCannotBeCopied) {
    Result<std::unique_ptr<int>> result(std::make_unique<int>(3));
    const auto taken = std::move(result.value());
    EXPECT_EQ(*taken, 3);
}

}  // namespace
}  // namespace nookwise
