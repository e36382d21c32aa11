#include "model/PileKind.h"

#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

struct Texts {
    PileKind kind;
    std::string_view rawValue;
    std::string_view title;
    std::string_view subtitle;
    std::string_view noun;
};

class PileTexts : public testing::TestWithParam<Texts> {};

TEST_P(PileTexts, areFixed) {
    const auto& texts = GetParam();
    EXPECT_EQ(rawValue(texts.kind), texts.rawValue);
    EXPECT_EQ(title(texts.kind), texts.title);
    EXPECT_EQ(subtitle(texts.kind), texts.subtitle);
    EXPECT_EQ(noun(texts.kind), texts.noun);
    EXPECT_EQ(pileKindFromRawValue(texts.rawValue), texts.kind);
}

INSTANTIATE_TEST_SUITE_P(
    Piles, PileTexts,
    testing::Values(Texts{PileKind::forgotten, "forgotten", "Forgotten downloads",
                          "Files in Downloads you haven\u2019t opened in 90+ days", "downloads"},
                    Texts{PileKind::installers, "installers", "Old installers",
                          ".dmg and .pkg files for apps that are already installed", "installers"},
                    Texts{PileKind::screenshots, "screenshots", "Old screenshots",
                          "Screenshots older than a month", "screenshots"},
                    Texts{PileKind::large, "large", "Large files",
                          "Files over 500 MB in Desktop, Documents and Downloads", "large files"},
                    Texts{PileKind::duplicates, "duplicates", "Duplicates",
                          "Exact copies of files you already have", "copies"}));

TEST(PileKind, areFiveInAFixedOrder) {
    EXPECT_EQ(std::vector<PileKind>(allPileKinds.begin(), allPileKinds.end()),
              (std::vector{PileKind::forgotten, PileKind::installers, PileKind::screenshots,
                           PileKind::large, PileKind::duplicates}));
}

TEST(PileKind, noOtherTextIsAPile) {
    for (const auto text : {"", "Forgotten", "forgotten ", "trash", "0"}) {
        EXPECT_EQ(pileKindFromRawValue(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace nookwise
