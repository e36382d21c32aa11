#include "platform/Uuid.h"

#include <set>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(UuidTest, isWrittenAndReadAsUpperCaseHyphenatedText) {
    constexpr auto text = "5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60";
    const auto uuid = Uuid::fromText(text);
    ASSERT_TRUE(uuid);
    EXPECT_EQ(uuid->text(), text);
    EXPECT_EQ(Uuid::fromText("5f1b9a52-6c0e-4c9b-9d5c-2b1d7a3e4f60"), uuid);
}

TEST(UuidTest, isNotReadFromAnythingElse) {
    for (const auto* text :
         {"", "5F1B9A52", "5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F6",
          "5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F600", "5F1B9A5206C0E-4C9B-9D5C-2B1D7A3E4F60",
          "5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4G60", "{F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60}",
          "5F1B9A526C0E4C9B9D5C2B1D7A3E4F60----"}) {
        EXPECT_FALSE(Uuid::fromText(text)) << text;
    }
}

TEST(UuidTest, isRandomOfVersionFour) {
    std::set<std::string> texts;
    for (int i = 0; i < 1'000; ++i) {
        const auto text = Uuid::random().text();
        EXPECT_EQ(text[14], '4');
        EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos);
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), 1'000u);
}

TEST(UuidTest, hashesByItsValue) {
    const auto uuid = Uuid::random();
    EXPECT_EQ(std::hash<Uuid>{}(uuid), std::hash<Uuid>{}(*Uuid::fromText(uuid.text())));
    EXPECT_NE(std::hash<Uuid>{}(uuid), std::hash<Uuid>{}(Uuid()));
}

}  // namespace
}  // namespace nookwise
