#include "model/FileItem.h"
#include "model/SweepItem.h"

#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr Date someDate{Seconds{1'000'000}};
constexpr Date otherDate{Seconds{2'000'000}};

FileItem everythingSet() {
    return {.url = FileUrl("/a"),
            .size = 1,
            .modified = someDate,
            .added = someDate,
            .lastUsed = someDate};
}

/// One value for each field in which it differs from `everythingSet`.
std::vector<FileItem> itemsThatDifferInOneField() {
    std::vector<FileItem> items(9, everythingSet());
    items[0].url = FileUrl("/b");
    items[1].size = 2;
    items[2].modified = otherDate;
    items[3].modified.reset();
    items[4].added = otherDate;
    items[5].added.reset();
    items[6].lastUsed = otherDate;
    items[7].lastUsed.reset();
    items[8].size = -1;
    return items;
}

TEST(FileItem, isEqualAndHashesAlikeWhenAllFiveFieldsAre) {
    EXPECT_EQ(everythingSet(), everythingSet());
    EXPECT_EQ(std::hash<FileItem>{}(everythingSet()), std::hash<FileItem>{}(everythingSet()));
}

TEST(FileItem, differsAndHashesDifferentlyWhenAnyFieldDiffers) {
    for (const auto& item : itemsThatDifferInOneField()) {
        EXPECT_NE(item, everythingSet());
        EXPECT_NE(std::hash<FileItem>{}(item), std::hash<FileItem>{}(everythingSet()));
    }
}

TEST(FileItem, hashesDifferentlyForDifferentLastUsedDatesOfOneUrl) {
    auto opened = everythingSet();
    auto neverOpened = everythingSet();
    neverOpened.lastUsed.reset();
    opened.lastUsed = otherDate;
    EXPECT_NE(opened, neverOpened);
    EXPECT_NE(std::hash<FileItem>{}(opened), std::hash<FileItem>{}(neverOpened));
}

TEST(FileItem, hashTellsApartWhichDateIsSet) {
    const FileItem modified{.url = FileUrl("/a"), .modified = someDate};
    const FileItem added{.url = FileUrl("/a"), .added = someDate};
    const FileItem used{.url = FileUrl("/a"), .lastUsed = someDate};
    EXPECT_NE(std::hash<FileItem>{}(modified), std::hash<FileItem>{}(added));
    EXPECT_NE(std::hash<FileItem>{}(added), std::hash<FileItem>{}(used));
}

TEST(FileItem, hashesDatesBefore1970AndNegativeZeroAsTheyCompare) {
    const FileItem zero{.url = FileUrl("/a"), .modified = Date{Seconds{0.0}}};
    const FileItem negativeZero{.url = FileUrl("/a"), .modified = Date{Seconds{-0.0}}};
    EXPECT_EQ(zero, negativeZero);
    EXPECT_EQ(std::hash<FileItem>{}(zero), std::hash<FileItem>{}(negativeZero));
    const FileItem before{.url = FileUrl("/a"), .modified = Date{Seconds{-5.0}}};
    EXPECT_NE(before, zero);
}

TEST(FileItem, isAValue) {
    const auto original = everythingSet();
    auto copy = original;
    copy.lastUsed = otherDate;
    EXPECT_EQ(original, everythingSet());
    const std::unordered_set<FileItem> set{original, copy, everythingSet()};
    EXPECT_EQ(set.size(), 2u);
}

TEST(SweepItem, differsAndHashesDifferentlyWhenAnyFieldDiffers) {
    const SweepItem item{everythingSet(), "reason", true};
    const SweepItem otherFile{itemsThatDifferInOneField().front(), "reason", true};
    const SweepItem otherReason{everythingSet(), "another", true};
    const SweepItem otherTick{everythingSet(), "reason", false};
    const std::hash<SweepItem> hash;
    EXPECT_EQ(item, (SweepItem{everythingSet(), "reason", true}));
    EXPECT_EQ(hash(item), hash(SweepItem{everythingSet(), "reason", true}));
    for (const auto& other : {otherFile, otherReason, otherTick}) {
        EXPECT_NE(item, other);
        EXPECT_NE(hash(item), hash(other));
    }
}

}  // namespace
}  // namespace nookwise
