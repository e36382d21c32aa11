#include "tools/demo/Agreement.h"

#include <gtest/gtest.h>

namespace nookwise::demo {

static bool operator==(const AgreedAttributes& a, const AgreedAttributes& b) {
    return a.added == b.added && a.lastUsed == b.lastUsed && a.allocatedSize == b.allocatedSize;
}

namespace {

const FileUrl home("/cache/home");

AgreedFiles sample() {
    return {{FileUrl("/cache/home/Downloads/two words.zip"),
             {.added = Date(Seconds(1'773'500'966.123456789)),
              .lastUsed = Date(Seconds(0.1)),
              .allocatedSize = 1'310'000'000}},
            {FileUrl("/cache/home/Desktop/\xff\xc3\xa9.png"), {.added = Date(Seconds(-5))}}};
}

TEST(Agreement, comesBackToTheBit) {
    const auto agreed = agreementFromText(agreementText(sample(), home), home);
    ASSERT_TRUE(agreed);
    EXPECT_TRUE(*agreed == sample());
    EXPECT_TRUE(agreementFromText(agreementText({}, home), home)->empty());
}

TEST(Agreement, holdsWhereTheHomeIsNow) {
    const auto agreed = agreementFromText(agreementText(sample(), home), FileUrl("/moved"));
    ASSERT_TRUE(agreed);
    EXPECT_TRUE(agreed->contains(FileUrl("/moved/Downloads/two words.zip")));
}

TEST(Agreement, isNoneWhenItIsCutOffAnywhere) {
    const auto text = agreementText(sample(), home);
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_FALSE(agreementFromText(text.substr(0, size), home)) << size;
}

TEST(Agreement, isNoneWhenALineIsNotOne) {
    const auto text = agreementText({}, home);
    const auto before = text.size() - std::string_view("end\n").size();
    for (const auto* line : {"\n", "5\n", "5 - - \n", "5 - -\n", "x - - a\n", "5 x - a\n",
                             "5 - x a\n", "5 - 1.5 a\n", " - - a\n", "5x - - a\n"}) {
        EXPECT_FALSE(agreementFromText(std::string(text).insert(before, line), home)) << line;
    }
    EXPECT_TRUE(agreementFromText(std::string(text).insert(before, "5 - - a\n"), home));
    EXPECT_FALSE(agreementFromText("x" + text, home));
}

}  // namespace
}  // namespace nookwise::demo
