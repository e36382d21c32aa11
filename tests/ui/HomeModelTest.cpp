#include "tests/ui/StoreFixture.h"
#include "ui/home/HomeModel.h"

namespace nookwise {
namespace {

class HomeShown : public StoreFixture {
  protected:
    void pass(std::chrono::seconds time) {
        fake.clock.set(fake.clock.now() + time);
        fake.tasks.advance(time);
    }

    FileItem arrived(std::string_view path, std::chrono::seconds ago) {
        auto item = file(path, 1);
        item.added = fake.clock.now() - ago;
        return item;
    }

    PilesModel piles{*store};
    ScanModel scan{*store};
    HomeModel home{*store, fake.platform(), piles, scan};
};

TEST_F(HomeShown, isCleanWhileNothingCouldComeBack) {
    EXPECT_TRUE(home.clean());
    EXPECT_EQ(home.headline(), QStringLiteral("Everything is clean"));
    EXPECT_EQ(home.sentence(), QStringLiteral("No piles in Desktop, Documents and Downloads."));
    EXPECT_EQ(home.blocks()->rowCount(), 0);
}

TEST_F(HomeShown, saysWhatCouldComeBackAndFromHowManyPiles) {
    setPile(PileKind::forgotten, {ticked("/a", 750 * megabyte)});
    EXPECT_FALSE(home.clean());
    EXPECT_EQ(home.headline(), QStringLiteral("750 MB could come back"));
    EXPECT_EQ(home.sentence(),
              QStringLiteral("One pile is ready to look through. Nothing moves until you say so."));
    setPile(PileKind::installers, {ticked("/b", 1)});
    setPile(PileKind::screenshots, {ticked("/c", 1)});
    setPile(PileKind::large, {ticked("/d", 1)});
    store->duplicates.set({copies({"/x", "/y"}, 1)});
    EXPECT_EQ(
        home.sentence(),
        QStringLiteral("Five piles are ready to look through. Nothing moves until you say so."));
}

TEST_F(HomeShown, cutsTheSpaceIntoPilesLargestFirst) {
    setPile(PileKind::installers, {ticked("/b", 1'000)});
    setPile(PileKind::large, {ticked("/d", 3'000)});
    EXPECT_EQ(texts(home.blocks(), "name"), QStringList({"large", "installers"}));
    EXPECT_EQ(texts(home.blocks(), "legend"), QStringList({"Large files", "Installers"}));
    EXPECT_DOUBLE_EQ(value(home.blocks(), 0, "from").toDouble(), 0.0);
    EXPECT_DOUBLE_EQ(value(home.blocks(), 0, "to").toDouble(), 0.75);
    EXPECT_DOUBLE_EQ(value(home.blocks(), 1, "to").toDouble(), 1.0);
    EXPECT_EQ(home.spokenBlocks(),
              QStringLiteral("4 KB could come back, Large files 3 KB, Installers 1 KB"));
}

TEST_F(HomeShown, showsTheFourNewestArrivals) {
    using namespace std::chrono_literals;
    store->justLanded.set(
        {arrived("/home/user/Downloads/a.pdf", 2h), arrived("/home/user/Desktop/b.jpg", 5h),
         arrived("/home/user/Downloads/c\xff.zip", 25h), file("/home/user/Downloads/d", 1),
         arrived("/home/user/Downloads/e", 50h)});
    EXPECT_EQ(texts(home.justLanded(), "name"),
              QStringList({"a.pdf", "b.jpg", "c\uFFFD.zip", "d"}));
    EXPECT_EQ(texts(home.justLanded(), "place"),
              QStringList({"Downloads", "Desktop", "Downloads", "Downloads"}));
    EXPECT_EQ(texts(home.justLanded(), "age"),
              QStringList({"2 hr. ago", "5 hr. ago", "1 day ago", "—"}));
    EXPECT_EQ(texts(home.justLanded(), "kindLabel"), QStringList({"PDF", "JPG", "ZIP", "FILE"}));
}

TEST_F(HomeShown, keepsAgesTrueAsTimePasses) {
    using namespace std::chrono_literals;
    store->justLanded.set({arrived("/home/user/Downloads/a.pdf", 10min)});
    EXPECT_EQ(text(home.justLanded(), 0, "age"), QStringLiteral("10 min. ago"));
    pass(60s);
    EXPECT_EQ(text(home.justLanded(), 0, "age"), QStringLiteral("11 min. ago"));
    pass(60s);
    EXPECT_EQ(text(home.justLanded(), 0, "age"), QStringLiteral("12 min. ago"));
}

TEST_F(HomeShown, saysWhenItWasChecked) {
    using namespace std::chrono_literals;
    EXPECT_EQ(home.checkedText(), QString());
    scan.startFirstScan();
    fake.tasks.runEverything();
    EXPECT_EQ(home.checkedText(), QStringLiteral("checked just now"));
    pass(2min);
    EXPECT_EQ(home.checkedText(), QStringLiteral("checked 2 min. ago"));
    scan.scanAgain();
    EXPECT_EQ(home.checkedText(), QStringLiteral("checked 2 min. ago"));
    fake.tasks.runEverything();
    EXPECT_EQ(home.checkedText(), QStringLiteral("checked just now"));
}

TEST_F(HomeShown, reviewsWithoutTouchingTheTicks) {
    setPile(PileKind::installers, {ticked("/b", 100)});
    store->resetChecks();
    store->toggle(FileUrl("/b"));
    home.reviewPiles();
    EXPECT_EQ(store->section.get(), AppSection::sweep);
    EXPECT_TRUE(store->checked.get().empty());
}

TEST_F(HomeShown, stopsKeepingAgesWhenItGoes) {
    const auto before = fake.tasks.pendingDelays();
    { const HomeModel other(*store, fake.platform(), piles, scan); }
    EXPECT_EQ(fake.tasks.pendingDelays(), before);
}

}  // namespace
}  // namespace nookwise
