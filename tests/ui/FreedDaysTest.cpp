#include "tests/ui/LocalTimes.h"
#include "ui/activity/FreedDays.h"

#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Days = std::vector<std::int64_t>;

const QDate first(2026, 10, 1);
const QDate third(2026, 10, 3);

ActivityEntry trashed(Date date, std::int64_t size) {
    ActivityEntry entry;
    entry.date = date;
    entry.moves = {{FileUrl("/a"), FileUrl("/Trash/a"), size}};
    return entry;
}

Days freed(const std::vector<ActivityEntry>& entries, Date start = october(1, 0)) {
    const Days days = freedByDay(entries, start, first, third);
    std::int64_t sum = 0;
    for (const auto bytes : days) sum += bytes;
    EXPECT_EQ(sum, freedSince(entries, start));
    return days;
}

TEST(FreedByDay, givesEveryDayItsSum) {
    EXPECT_EQ(freed({}), (Days{0, 0, 0}));
    EXPECT_EQ(freed({trashed(october(3, 23, 59), 5), trashed(october(3, 0), 20),
                     trashed(october(1, 0), 7)}),
              (Days{7, 0, 25}));
}

TEST(FreedByDay, addsUpAllMovesOfAnEntry) {
    auto entry = trashed(october(2, 12), 5);
    entry.moves.push_back({FileUrl("/b"), FileUrl("/Trash/b"), 6});
    EXPECT_EQ(freed({entry}), (Days{0, 11, 0}));
}

TEST(FreedByDay, leavesOutWhatCameBackAndWhatFreedNothing) {
    std::vector<ActivityEntry> entries(4, trashed(october(2, 12), 5));
    entries[0].restored = true;
    entries[1].kind = ActivityEntry::Kind::move;
    entries[2].kind = ActivityEntry::Kind::copy;
    entries[3].kind = ActivityEntry::Kind::rename;
    EXPECT_EQ(freed(entries), (Days{0, 0, 0}));
    entries[3].kind = ActivityEntry::Kind::trash;
    EXPECT_EQ(freed(entries), (Days{0, 5, 0}));
}

TEST(FreedByDay, leavesOutWhatWasEarlier) {
    EXPECT_EQ(freed({trashed(october(1, 0) - Seconds(1), 5)}), (Days{0, 0, 0}));
}

TEST(FreedByDay, countsWhatLiesOutsideForTheNearerDay) {
    EXPECT_EQ(freed({trashed(october(9, 12), 5)}), (Days{0, 0, 5}));
    EXPECT_EQ(freed({trashed(october(1, 0) - Seconds(1), 5)}, distantPast), (Days{5, 0, 0}));
}

TEST(FreedByDay, hasOneDayWhereTheyAreTheWrongWayRound) {
    EXPECT_EQ(freedByDay({trashed(october(2, 12), 5)}, october(1, 0), third, first), (Days{5}));
}

TEST(FreedByDayDeathTest, stopsWhereTheSumOverflows) {
    const auto most = trashed(october(2, 12), std::numeric_limits<std::int64_t>::max());
    EXPECT_DEATH((void)freedByDay({most, most}, october(1, 0), first, third), "overflowed");
}

}  // namespace
}  // namespace nookwise
