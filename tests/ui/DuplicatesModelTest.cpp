#include "tests/ui/StoreFixture.h"
#include "ui/duplicates/DuplicatesModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

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
    EXPECT_EQ(text(duplicates.rows(), 0, "trashText"), QStringLiteral("Trash 2 extras"));
    EXPECT_EQ(duplicates.trashText(), QStringLiteral("Trash all extras (2 · 825.2 MB)"));
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

TEST_F(CopiesShown, mayBeOfTensOfThousandsOfGroups) {
    std::vector<DuplicateGroup> groups;
    for (int i = 0; i < 50'000; ++i) {
        const auto name = std::to_string(i);
        groups.push_back(copies({"/a/" + name, "/b/" + name}, megabyte));
    }
    store->duplicates.set(groups);
    for (int row = 1; row < 200; row += 2) duplicates.keep(row, 1);
    EXPECT_TRUE(tiles(199)[1].toMap()["kept"].toBool());
    EXPECT_TRUE(tiles(201)[0].toMap()["kept"].toBool());
    groups.erase(groups.begin() + 40'000);
    store->duplicates.set(std::move(groups));
    EXPECT_EQ(duplicates.rows()->rowCount(), 2 * 49'999);
}

class CopiesKept : public CopiesShown {
  protected:
    CopiesKept() { store->duplicates.set({first, second, third}); }

    /// The kept copies by their names, line by line.
    QStringList kept() {
        QStringList names;
        for (int row = 0; row < duplicates.rows()->rowCount(); ++row) {
            for (const auto& tile : tiles(row)) {
                if (tile.toMap()["kept"].toBool()) names += tile.toMap()["name"].toString();
            }
        }
        return names;
    }

    QStringList asked() {
        QStringList names;
        if (!store->pendingTrash.get()) return names;
        for (const auto& file : store->pendingTrash.get()->files)
            names += QString::fromStdString(std::string(file.url.lastPathComponent()));
        return names;
    }

    DuplicateGroup first = copies({"/a", "/b", "/c", "/d"}, 10);
    DuplicateGroup second = copies({"/e", "/f"}, 5);
    DuplicateGroup third = copies({"/g", "/h", "/i"}, 5);
};

TEST_F(CopiesKept, areChosenByTheirLineAndPlace) {
    duplicates.keep(2, 0);
    duplicates.keep(4, 1);
    EXPECT_EQ(kept(), QStringList({"d", "f", "g"}));
    EXPECT_EQ(text(duplicates.rows(), 0, "title"), QStringLiteral("d"));
}

TEST_F(CopiesKept, areChosenInTheGroupThatHoldsThemWhereTwoHaveOneId) {
    second.id = third.id = first.id;
    store->duplicates.set({first, second, third});
    duplicates.keep(6, 2);
    EXPECT_EQ(kept(), QStringList({"a", "e", "i"}));
}

TEST_F(CopiesKept, stayWhereThereIsNoSuchCopy) {
    for (const int row : {-1, 0, 7}) duplicates.keep(row, 0);
    for (const int column : {-1, 1, 3}) duplicates.keep(2, column);
    EXPECT_EQ(kept(), QStringList({"a", "e", "g"}));
}

TEST_F(CopiesKept, leaveTheListAsItIs) {
    QSignalSpy reset(duplicates.rows(), &QAbstractItemModel::modelReset);
    QSignalSpy removed(duplicates.rows(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(duplicates.rows(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(duplicates.rows(), &QAbstractItemModel::dataChanged);
    duplicates.keep(1, 1);
    EXPECT_EQ(reset.size() + removed.size() + inserted.size(), 0);
    EXPECT_EQ(changed.size(), 1);
    duplicates.keep(1, 1);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(CopiesKept, leaveTheExtrasOfTheirGroupToTheTrash) {
    duplicates.keep(1, 2);
    duplicates.trashExtras(2);
    EXPECT_EQ(asked(), QStringList({"a", "b", "d"}));
    duplicates.trashExtras(3);
    EXPECT_EQ(asked(), QStringList({"f"}));
    EXPECT_EQ(store->pendingTrash.get()->source, "Duplicates");
}

TEST_F(CopiesKept, leaveAllExtrasToTheTrash) {
    duplicates.keep(4, 1);
    duplicates.trashAllExtras();
    EXPECT_EQ(asked(), QStringList({"b", "c", "d", "e", "h", "i"}));
    EXPECT_EQ(duplicates.trashText(), QStringLiteral("Trash all extras (6 · 0 KB)"));
}

TEST_F(CopiesKept, areNotAskedForWhereThereIsNoSuchLine) {
    for (const int row : {-1, 7}) duplicates.trashExtras(row);
    EXPECT_FALSE(store->pendingTrash.get());
}

TEST_F(CopiesKept, stayInTheListWhenAnotherGroupGoes) {
    const QAbstractItemModelTester tester(duplicates.rows(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy reset(duplicates.rows(), &QAbstractItemModel::modelReset);
    QSignalSpy removed(duplicates.rows(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(duplicates.rows(), &QAbstractItemModel::rowsInserted);
    store->duplicates.set({first, third});
    EXPECT_EQ(shape(), QStringLiteral("H31.H3."));
    EXPECT_EQ(kept(), QStringList({"a", "g"}));
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 3);
    EXPECT_EQ(removed[0][2].toInt(), 4);
    duplicates.keep(4, 1);
    EXPECT_EQ(kept(), QStringList({"a", "h"}));
    EXPECT_EQ(reset.size() + inserted.size(), 0);
}

TEST_F(CopiesKept, areFoundWhereTheirGroupMovedUp) {
    store->duplicates.set({DuplicateGroup{.id = "empty"}, first, second, third});
    store->duplicates.set({first, second, third});
    EXPECT_EQ(kept(), QStringList({"a", "e", "g"}));
}

TEST_F(CopiesKept, areShownAnewWhereAGroupIsAnotherOne) {
    const QAbstractItemModelTester tester(duplicates.rows(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto shorter = copies({"/a", "/b"}, 10);
    const auto other = copies({"/x", "/y"}, 10);
    store->duplicates.set({shorter, other, third});
    EXPECT_EQ(shape(), QStringLiteral("H2.H2.H3."));
    EXPECT_EQ(kept(), QStringList({"a", "x", "g"}));
    store->duplicates.set({});
    EXPECT_EQ(shape(), QString());
}

}  // namespace
}  // namespace nookwise
