#include "tests/ui/StoreFixture.h"
#include "ui/duplicates/DuplicatesModel.h"

#include <QAbstractItemModelTester>

namespace nookwise {
namespace {

class CopiesShown : public StoreFixture {
  protected:
    /// "H" for a heading, the number of copies for a line.
    QString shape() {
        QString lines;
        for (int row = 0; row < duplicates.rows()->rowCount(); ++row) {
            const bool heading = value(duplicates.rows(), row, "heading").toBool();
            lines += heading ? QStringLiteral("H") : QString::number(tiles(row).size());
            if (value(duplicates.rows(), row, "last").toBool()) lines += u'.';
        }
        return lines;
    }

    QVariantList tiles(int row) { return value(duplicates.rows(), row, "copies").toList(); }

    PilesModel piles{*store};
    DuplicatesModel duplicates{*store, fake.clock, fake.folders.home(), piles};
};

TEST_F(CopiesShown, areNoneAtFirst) {
    EXPECT_TRUE(duplicates.empty());
    EXPECT_EQ(duplicates.rows()->rowCount(), 0);
}

TEST_F(CopiesShown, areCutIntoLines) {
    const QAbstractItemModelTester tester(duplicates.rows(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    store->duplicates.set({copies({"/a", "/b", "/c", "/d"}, 10), copies({"/e", "/f"}, 5)});
    EXPECT_EQ(shape(), QStringLiteral("H31.H2."));
    duplicates.setColumns(2);
    EXPECT_EQ(shape(), QStringLiteral("H22.H2."));
    EXPECT_EQ(value(duplicates.rows(), 0, "perLine").toInt(), 2);
}

TEST_F(CopiesShown, standInWiderTilesWhereTheyAreFew) {
    store->duplicates.set({copies({"/e", "/f"}, 5)});
    EXPECT_EQ(value(duplicates.rows(), 1, "perLine").toInt(), 2);
}

TEST_F(CopiesShown, sayWhatTheGroupIs) {
    store->duplicates.set(
        {copies({"/home/user/Documents/walk.mov", "/home/user/Desktop/walk copy.mov",
                 "/home/user/Downloads/walk.mov"},
                412'600'000)});
    EXPECT_EQ(text(duplicates.rows(), 0, "title"), QStringLiteral("walk.mov"));
    EXPECT_EQ(text(duplicates.rows(), 0, "caption"), QStringLiteral("3 copies, 412.6 MB each"));
    EXPECT_EQ(text(duplicates.rows(), 0, "size"), QStringLiteral("825.2 MB"));
    EXPECT_EQ(duplicates.totalText(), QStringLiteral("825.2 MB"));
    EXPECT_EQ(duplicates.countText(), QStringLiteral("2 copies in 1 group"));
    EXPECT_EQ(duplicates.comesBackText(), QStringLiteral("825.2 MB comes back"));
}

TEST_F(CopiesShown, sayWhereTheyAreAndWhichIsKept) {
    auto group =
        copies({"/home/user/Documents/Fernhill/walk.mov", "/home/user/Downloads/walk\xff.mov"}, 5);
    group.files[0].added = fake.clock.now() - std::chrono::hours(50);
    group.files[1].modified = fake.clock.now() - std::chrono::hours(3);
    store->duplicates.set({group});
    const auto kept = tiles(1)[0].toMap();
    EXPECT_EQ(kept["place"].toString(), QStringLiteral("~/Documents/Fernhill"));
    EXPECT_EQ(kept["name"].toString(), QStringLiteral("walk.mov"));
    EXPECT_EQ(kept["age"].toString(), QStringLiteral("2 days ago"));
    EXPECT_TRUE(kept["kept"].toBool());
    EXPECT_EQ(kept["spoken"].toString(), QStringLiteral("Documents, Fernhill, kept"));
    const auto extra = tiles(1)[1].toMap();
    EXPECT_EQ(extra["name"].toString(), QStringLiteral("walk\uFFFD.mov"));
    EXPECT_EQ(extra["age"].toString(), QStringLiteral("3 hr. ago"));
    EXPECT_FALSE(extra["kept"].toBool());
    EXPECT_EQ(extra["spoken"].toString(), QStringLiteral("Downloads, extra"));
}

TEST_F(CopiesShown, areAllExtraWhenTheKeptOneIsGone) {
    auto group = copies({"/a", "/b"}, 5);
    group.keep = FileUrl("/gone");
    store->duplicates.set({group});
    EXPECT_EQ(text(duplicates.rows(), 0, "title"), QStringLiteral("a"));
    EXPECT_FALSE(tiles(1)[0].toMap()["kept"].toBool());
    EXPECT_EQ(duplicates.countText(), QStringLiteral("2 copies in 1 group"));
}

TEST_F(CopiesShown, ofAnEmptyGroupHaveNoLine) {
    store->duplicates.set({DuplicateGroup{.id = "x"}, copies({"/a", "/b"}, 5)});
    EXPECT_EQ(shape(), QStringLiteral("H2."));
}

TEST_F(CopiesShown, mayBeTensOfThousandsInOneGroup) {
    DuplicateGroup group{.id = "x"};
    for (int i = 0; i < 50'000; ++i) group.files.push_back(file("/f" + std::to_string(i), 1));
    group.keep = group.files[0].url;
    store->duplicates.set({std::move(group)});
    EXPECT_EQ(duplicates.rows()->rowCount(), 1 + 16'667);
    EXPECT_EQ(tiles(16'667).size(), 2);
    EXPECT_EQ(duplicates.countText(), QStringLiteral("49,999 copies in 1 group"));
}

}  // namespace
}  // namespace nookwise
