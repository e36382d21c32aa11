#include "platform/linux/PercentEscapes.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(PercentEscapes, leaveUnreservedCharactersAndSlashesAlone) {
    EXPECT_EQ(percentEscaped("/home/u/A-z_0.9~"), "/home/u/A-z_0.9~");
}

TEST(PercentEscapes, writeEveryOtherByteInHexadecimalDigits) {
    EXPECT_EQ(percentEscaped("50%20off"), "50%2520off");
    EXPECT_EQ(percentEscaped("a b\nc"), "a%20b%0Ac");
    EXPECT_EQ(percentEscaped("\xC3\xA4\xFF"), "%C3%A4%FF");
    EXPECT_EQ(percentEscaped("[!$&'()*+,;=:@\"]"),
              "%5B%21%24%26%27%28%29%2A%2B%2C%3B%3D%3A%40%22%5D");
}

TEST(PercentEscapes, bringBackEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(percentUnescaped(percentEscaped(bytes)), bytes);
}

TEST(PercentEscapes, areReadInEitherCaseAndWhereNotAllIsEscaped) {
    EXPECT_EQ(percentUnescaped("a+b (\xC3\xA4)%c3%A4"), "a+b (\xC3\xA4)\xC3\xA4");
    EXPECT_EQ(percentUnescaped(""), "");
}

TEST(PercentEscapes, areRefusedWhereTheyAreCutShortOrNoNumbers) {
    for (const auto* text : {"%", "a%2", "%zz", "%2x", "%-1", "%+1", "% 1", "%%41"})
        EXPECT_EQ(percentUnescaped(text), std::nullopt) << text;
}

}  // namespace
}  // namespace nookwise
