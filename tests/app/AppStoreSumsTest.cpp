#include "tests/app/StoreFixture.h"

#include <limits>

namespace nookwise {
namespace {

constexpr auto most = std::numeric_limits<std::int64_t>::max();

class Sums : public StoreFixture {
  protected:
    static SweepItem item(std::string_view path, std::int64_t size) {
        return {sized(path, size), "", false};
    }

    static DuplicateGroup group(std::string_view name, int copies, std::int64_t size) {
        DuplicateGroup result{.id = std::string(name)};
        for (int i = 0; i < copies; ++i) {
            result.files.push_back(sized("/" + std::string(name) + std::to_string(i), size));
        }
        if (copies > 0) result.keep = result.files.front().url;
        return result;
    }

    std::shared_ptr<AppStore> store = launch();
};

TEST_F(Sums, ofAnEmptyStoreAreZero) {
    for (const auto pile : allPileKinds) EXPECT_EQ(store->bytes(pile), 0);
    EXPECT_EQ(store->sweepTotal(), 0);
    EXPECT_EQ(store->duplicatesBytes(), 0);
    EXPECT_EQ(store->duplicateCopies(), 0);
    for (const auto shelf : allShelfKinds) {
        EXPECT_TRUE(store->shelf(shelf).empty());
        EXPECT_EQ(store->shelfBytes(shelf), 0);
    }
}

TEST_F(Sums, ofAPileAreTheSizesOfItsFiles) {
    store->piles.set(
        {{PileKind::forgotten, {item("/a", 1), item("/b", 20)}}, {PileKind::large, {}}});
    EXPECT_EQ(store->bytes(PileKind::forgotten), 21);
    EXPECT_EQ(store->bytes(PileKind::large), 0);
    EXPECT_EQ(store->bytes(PileKind::installers), 0);
}

TEST_F(Sums, ofDuplicatesAreAllCopiesButOneOfEachGroup) {
    store->duplicates.set({group("three", 3, 10), group("one", 1, 20), group("none", 0, 0)});
    EXPECT_EQ(store->bytes(PileKind::duplicates), 20);
    EXPECT_EQ(store->duplicatesBytes(), 20);
}

TEST_F(Sums, ofDuplicatesGoByTheFirstFileWhicheverIsKept) {
    auto mixed = group("mixed", 3, 10);
    mixed.files[1].size = 77;
    mixed.keep = mixed.files[2].url;
    store->duplicates.set({mixed});
    EXPECT_EQ(store->duplicatesBytes(), 20);
}

TEST_F(Sums, ofDuplicateCopiesAreTheFilesThatAreNotKept) {
    auto nothingKept = group("nothing kept", 3, 10);
    nothingKept.keep = FileUrl("/elsewhere");
    store->duplicates.set(
        {group("two", 2, 10), nothingKept, group("one", 1, 5), group("none", 0, 0)});
    EXPECT_EQ(store->duplicateCopies(), 4);
}

TEST_F(Sums, ofAllPilesCountDuplicatesByTheirGroupsOnly) {
    store->piles.set({{PileKind::forgotten, {item("/a", 1)}},
                      {PileKind::installers, {item("/b", 20)}},
                      {PileKind::screenshots, {item("/c", 300)}},
                      {PileKind::large, {item("/d", 4'000)}},
                      {PileKind::duplicates, {item("/e", 50'000)}}});
    store->duplicates.set({group("two", 2, 600'000)});
    EXPECT_EQ(store->sweepTotal(), 604'321);
    EXPECT_EQ(store->bytes(PileKind::duplicates), 600'000);
}

TEST_F(Sums, ofAShelfAreTheSizesOfItsFiles) {
    store->shelves.set({{ShelfKind::docs, {sized("/a.pdf", 3), sized("/b.pdf", 4)}}});
    EXPECT_EQ(store->shelf(ShelfKind::docs).size(), 2u);
    EXPECT_EQ(store->shelfBytes(ShelfKind::docs), 7);
    EXPECT_EQ(store->shelfBytes(ShelfKind::audio), 0);
}

TEST_F(Sums, reachTheLargestNumber) {
    store->piles.set({{PileKind::large, {item("/a", most - 1), item("/b", 1)}}});
    EXPECT_EQ(store->bytes(PileKind::large), most);
    EXPECT_EQ(store->sweepTotal(), most);
}

class SumsDeathTest : public Sums {};

TEST_F(SumsDeathTest, thatOverflowStopTheProgram) {
    store->piles.set({{PileKind::large, {item("/a", most), item("/b", 1)}}});
    EXPECT_DEATH(store->bytes(PileKind::large), "overflow");
    EXPECT_DEATH(store->sweepTotal(), "overflow");
}

TEST_F(SumsDeathTest, thatOverflowOverSeveralPilesStopTheProgram) {
    store->piles.set(
        {{PileKind::large, {item("/a", most)}}, {PileKind::forgotten, {item("/b", 1)}}});
    EXPECT_EQ(store->bytes(PileKind::large), most);
    EXPECT_DEATH(store->sweepTotal(), "overflow");
}

TEST_F(SumsDeathTest, ofDuplicatesThatOverflowStopTheProgram) {
    store->duplicates.set({group("three", 3, most)});
    EXPECT_DEATH(store->duplicatesBytes(), "overflow");
    store->duplicates.set({group("a", 2, most), group("b", 2, 1)});
    EXPECT_DEATH(store->bytes(PileKind::duplicates), "overflow");
}

TEST_F(SumsDeathTest, ofAShelfThatOverflowStopTheProgram) {
    store->shelves.set({{ShelfKind::docs, {sized("/a.pdf", most), sized("/b.pdf", 1)}}});
    EXPECT_DEATH(store->shelfBytes(ShelfKind::docs), "overflow");
}

}  // namespace
}  // namespace nookwise
