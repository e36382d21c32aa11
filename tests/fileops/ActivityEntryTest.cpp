#include "fileops/ActivityEntry.h"

#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Kind = ActivityEntry::Kind;

constexpr Date now{Seconds{1'000'000}};

ActivityEntry entryOf(std::int64_t size, std::optional<Kind> kind = std::nullopt) {
    return {.id = Uuid::random(),
            .date = now,
            .title = "title",
            .source = "source",
            .moves = {{FileUrl("/a"), FileUrl("/b"), size}},
            .restored = false,
            .kind = kind};
}

TEST(ActivityEntryTest, namesItsFilesInOrder) {
    auto entry = entryOf(1);
    entry.moves = {{FileUrl("/home/b.txt"), FileUrl("/Trash/x"), 1},
                   {FileUrl("/home/a.txt"), FileUrl("/Trash/y"), 1}};
    EXPECT_EQ(entry.names(), (std::vector<std::string>{"b.txt", "a.txt"}));
}

TEST(ActivityEntryTest, withoutAKindIsAboutTheTrash) {
    EXPECT_EQ(entryOf(1).effectiveKind(), Kind::trash);
    EXPECT_EQ(entryOf(1, Kind::rename).effectiveKind(), Kind::rename);
}

TEST(ActivityEntryTest, hasKindsWithStoredTexts) {
    for (const auto kind : {Kind::trash, Kind::move, Kind::copy, Kind::rename})
        EXPECT_EQ(activityKindFromRawValue(rawValue(kind)), kind);
    EXPECT_EQ(rawValue(Kind::rename), "rename");
    EXPECT_FALSE(activityKindFromRawValue("Trash"));
}

TEST(ActivityEntryTest, isEqualAndHashedByAllFields) {
    const auto entry = entryOf(1);
    const auto differsBy = [&](auto change) {
        auto other = entry;
        change(other);
        EXPECT_NE(other, entry);
        EXPECT_NE(std::hash<ActivityEntry>{}(other), std::hash<ActivityEntry>{}(entry));
    };
    auto same = entry;
    EXPECT_EQ(std::hash<ActivityEntry>{}(same), std::hash<ActivityEntry>{}(entry));
    differsBy([](ActivityEntry& other) { other.id = Uuid::random(); });
    differsBy([](ActivityEntry& other) { other.date += Seconds{1}; });
    differsBy([](ActivityEntry& other) { other.title = "other"; });
    differsBy([](ActivityEntry& other) { other.source = "other"; });
    differsBy([](ActivityEntry& other) { other.moves.front().size = 2; });
    differsBy([](ActivityEntry& other) { other.restored = true; });
    differsBy([](ActivityEntry& other) { other.kind = Kind::trash; });
}

TEST(FreedSpace, sumsWhatWasTrashedSinceTheStartThatMomentIncluded) {
    auto earlier = entryOf(100);
    earlier.date -= Seconds{0.001};
    EXPECT_EQ(freedSince({entryOf(1), entryOf(2, Kind::trash), earlier}, now), 3);
    EXPECT_EQ(freedSince({}, now), 0);
}

TEST(FreedSpace, leavesOutWhatWasPutBackAndWhatFreesNothing) {
    auto restored = entryOf(1);
    restored.restored = true;
    EXPECT_EQ(freedSince({restored, entryOf(2, Kind::move), entryOf(4, Kind::copy),
                          entryOf(8, Kind::rename)},
                         distantPast),
              0);
}

TEST(FreedSpace, stopsTheProgramWhenTheSumOverflows) {
    const auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_DEATH((void)freedSince({entryOf(most), entryOf(1)}, now), "overflow");
}

}  // namespace
}  // namespace nookwise
