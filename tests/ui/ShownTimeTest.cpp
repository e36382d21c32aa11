#include "tests/ui/LocalTimes.h"
#include "tests/ui/StoreFixture.h"
#include "ui/bridge/ShownTime.h"

namespace nookwise {
namespace {

class TimesShown : public testing::Test {
  protected:
    const BritishTexts texts;
    const QDate today{2026, 10, 14};
};

TEST_F(TimesShown, areLocalOnes) {
    EXPECT_EQ(localTime(october(14, 9, 30)).date(), today);
    EXPECT_EQ(localTime(october(14, 9, 30)).time(), QTime(9, 30));
    EXPECT_EQ(shownTime(october(14, 14, 32)), QStringLiteral("14:32"));
}

TEST_F(TimesShown, followTheUsersLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(shownTime(october(14, 14, 32)), QStringLiteral("14:32"));
    EXPECT_EQ(shownDay({2026, 10, 10}, today), QStringLiteral("Samstag 10 Oktober"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(shownTime(october(14, 14, 32)).contains(QStringLiteral("2:32")));
}

TEST_F(TimesShown, haveNoSecondsWhereThereIsNoLocale) {
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(shownTime(october(14, 9, 5)), QStringLiteral("09:05"));
}

TEST_F(TimesShown, nameTheLastTwoDays) {
    EXPECT_EQ(shownDay(today, today), QStringLiteral("Today"));
    EXPECT_EQ(shownDay({2026, 10, 13}, today), QStringLiteral("Yesterday"));
    EXPECT_EQ(shownDay({2025, 12, 31}, {2026, 1, 1}), QStringLiteral("Yesterday"));
}

TEST_F(TimesShown, nameOtherDaysByTheirDates) {
    EXPECT_EQ(shownDay({2026, 10, 10}, today), QStringLiteral("Saturday 10 October"));
    EXPECT_EQ(shownDay({2026, 10, 15}, today), QStringLiteral("Thursday 15 October"));
    EXPECT_EQ(shownDay({2025, 10, 10}, today), QStringLiteral("Friday 10 October 2025"));
    EXPECT_EQ(shownShortDay({2026, 10, 1}), QStringLiteral("1 Oct"));
}

TEST_F(TimesShown, stayWithinTheCalendar) {
    EXPECT_TRUE(localTime(distantPast).isValid());
    EXPECT_TRUE(localTime(distantFuture).isValid());
    EXPECT_LE(localTime(distantFuture).date().year(), 9999);
}

}  // namespace
}  // namespace nookwise
