#include "tests/ui/LocalTimes.h"
#include "tests/ui/StoreFixture.h"
#include "ui/activity/ActivityModel.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QSignalSpy>

namespace nookwise {
namespace {

class ChangesShown : public StoreFixture {
  protected:
    ChangesShown() {
        fake.clock.set(october(14, 15));
        pass(std::chrono::minutes(1));
    }

    void pass(std::chrono::seconds time) {
        fake.clock.set(fake.clock.now() + time);
        fake.tasks.advance(time);
    }

    static ActivityEntry entry(std::string title, std::string source, Date date,
                               std::initializer_list<std::string_view> originals = {"/a"}) {
        ActivityEntry entry{.id = Uuid::random(),
                            .date = date,
                            .title = std::move(title),
                            .source = std::move(source)};
        for (const auto original : originals)
            entry.moves.push_back({FileUrl(original), FileUrl("/Trash/x"), megabyte});
        return entry;
    }

    static ActivityEntry ofKind(ActivityEntry::Kind kind) {
        auto made = entry("Moved 1 file", "Split view", october(14, 9));
        made.kind = kind;
        return made;
    }

    void show(std::vector<ActivityEntry> entries) { store->activity.set(std::move(entries)); }
    QString first(const QByteArray& role) { return text(activity.rows(), 0, role); }

    const BritishTexts british;
    ActivityModel activity{*store, fake.platform()};
};

TEST_F(ChangesShown, areNoneAtFirst) {
    EXPECT_TRUE(activity.empty());
    EXPECT_TRUE(activity.freedNothing());
    EXPECT_EQ(activity.freedText(), QStringLiteral("Zero KB"));
    EXPECT_EQ(activity.spokenDays(), QStringLiteral("Nothing freed"));
}

TEST_F(ChangesShown, standUnderTheirDays) {
    show({entry("e", "", october(14, 14)), entry("d", "", october(14, 0)),
          entry("c", "", october(13, 23, 59)), entry("b", "", october(10, 8)),
          entry("a", "", october(10, 7))});
    EXPECT_FALSE(activity.empty());
    EXPECT_EQ(texts(activity.rows(), "day"),
              QStringList({"Today", "", "Yesterday", "Saturday 10 October", ""}));
    EXPECT_EQ(texts(activity.rows(), "last"),
              QStringList({"false", "true", "true", "false", "true"}));
    EXPECT_EQ(texts(activity.rows(), "title"), QStringList({"e", "d", "c", "b", "a"}));
}

TEST_F(ChangesShown, sayWhereTheyWereStartedAndWhen) {
    show({entry("Swept 3 downloads", "Forgotten downloads", october(14, 14, 32)),
          entry("Trashed 1 files", "", october(14, 9, 5))});
    EXPECT_EQ(texts(activity.rows(), "facts"),
              QStringList({"Forgotten downloads · 14:32", "09:05"}));
}

TEST_F(ChangesShown, nameTheFirstFiles) {
    show({entry("", "", october(14, 9), {}), entry("", "", october(14, 9), {"/x/a.pdf"}),
          entry("", "", october(14, 9), {"/x/a.pdf", "/x/b\xff"}),
          entry("", "", october(14, 9), {"/x/a.pdf", "/x/b", "/x/c"})});
    EXPECT_EQ(texts(activity.rows(), "names"),
              QStringList({"", "a.pdf", "a.pdf, b\uFFFD", "a.pdf, b"}));
    EXPECT_EQ(texts(activity.rows(), "more"), QStringList({"", "", "", "and 1 more"}));
    EXPECT_EQ(texts(activity.rows(), "size"), QStringList({"Zero KB", "1 MB", "2 MB", "3 MB"}));
}

TEST_F(ChangesShown, mayBeOfTenThousandFiles) {
    auto large = entry("", "", october(14, 9), {});
    for (int i = 0; i < 10'000; ++i)
        large.moves.push_back({FileUrl("/f" + std::to_string(i)), FileUrl("/t"), megabyte});
    show({large});
    EXPECT_EQ(first("names"), QStringLiteral("f0, f1"));
    EXPECT_EQ(first("more"), QStringLiteral("and 9,998 more"));
    EXPECT_EQ(first("size"), QStringLiteral("10 GB"));
}

TEST_F(ChangesShown, arePicturedByTheirPilesAndKinds) {
    auto moved = ofKind(ActivityEntry::Kind::move);
    moved.source = "Duplicates";
    show({entry("", "Duplicates", october(14, 9)), entry("", "Pictures", october(14, 9)), moved,
          ofKind(ActivityEntry::Kind::copy), ofKind(ActivityEntry::Kind::rename),
          ofKind(ActivityEntry::Kind::trash)});
    EXPECT_EQ(texts(activity.rows(), "pile"), QStringList({"duplicates", "", "", "", "", ""}));
    EXPECT_EQ(texts(activity.rows(), "kind"),
              QStringList({"trash", "trash", "move", "copy", "rename", "trash"}));
    for (const auto& kind : texts(activity.rows(), "kind"))
        EXPECT_TRUE(QFile::exists(":/Nookwise/assets/icons/" + kind + ".svg"));
    for (const auto kind : allPileKinds) {
        show({entry("", std::string(title(kind)), october(14, 9))});
        EXPECT_TRUE(QFile::exists(":/Nookwise/assets/art/mini-" + first("pile") + ".svg"));
    }
}

TEST_F(ChangesShown, areSpokenInOneSentence) {
    auto back = entry("Moved 1 file to Documents", "Split view", october(13, 9, 47));
    back.kind = ActivityEntry::Kind::move;
    back.restored = true;
    show(
        {entry("Swept 3 downloads", "Forgotten downloads", october(14, 14, 32), {"/a", "/b", "/c"}),
         back});
    EXPECT_EQ(texts(activity.rows(), "spoken"),
              QStringList({"Swept 3 downloads, Forgotten downloads, Today 14:32, 3 MB, a, b, and "
                           "1 more",
                           "Moved 1 file to Documents, Split view, Yesterday 09:47, 1 MB, a, is "
                           "back"}));
}

TEST_F(ChangesShown, hideCharactersThatCouldDeceive) {
    show({entry("Moved 1 file to \u202Ex", "so\nurce", october(14, 9))});
    EXPECT_EQ(first("title"), QStringLiteral("Moved 1 file to \uFFFDx"));
    EXPECT_EQ(first("facts"), QStringLiteral("so\uFFFDurce · 09:00"));
}

TEST_F(ChangesShown, leaveTheListWhereItIsWhenOneIsAdded) {
    const QAbstractItemModelTester tester(activity.rows(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto b = entry("b", "", october(14, 9));
    const auto a = entry("a", "", october(13, 9));
    show({b, a});
    QSignalSpy reset(activity.rows(), &QAbstractItemModel::modelReset);
    QSignalSpy removed(activity.rows(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(activity.rows(), &QAbstractItemModel::rowsInserted);
    show({entry("c", "", october(14, 10)), b, a});
    EXPECT_EQ(texts(activity.rows(), "title"), QStringList({"c", "b", "a"}));
    EXPECT_EQ(texts(activity.rows(), "day"), QStringList({"Today", "", "Yesterday"}));
    EXPECT_EQ(reset.size() + removed.size(), 0);
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][2].toInt(), 0);
    show({});
    EXPECT_EQ(removed.size(), 1);
}

TEST_F(ChangesShown, arePutBackByTheirRow) {
    fake.files.addFile("/Trash/b", {.contents = "b"});
    auto older = entry("b", "", october(14, 9), {});
    older.moves.push_back({FileUrl("/home/user/Downloads/b"), FileUrl("/Trash/b"), 1});
    show({entry("c", "", october(14, 10), {"/home/user/c"}), older});
    QSignalSpy inserted(activity.rows(), &QAbstractItemModel::rowsInserted);
    activity.putBack(1);
    EXPECT_EQ(texts(activity.rows(), "restored"), QStringList({"false", "true"}));
    EXPECT_TRUE(fake.files.exists(FileUrl("/home/user/Downloads/b")));
    EXPECT_EQ(inserted.size(), 0);
    for (const int row : {-1, 1, 2}) activity.putBack(row);
    EXPECT_EQ(texts(activity.rows(), "restored"), QStringList({"false", "true"}));
}

TEST_F(ChangesShown, addUpToWhatTheMonthFreed) {
    QSignalSpy changed(&activity, &ActivityModel::changed);
    show({entry("", "", october(14, 9), {"/a", "/b", "/c", "/d"}),
          entry("", "", october(10, 9), {"/a"}), entry("", "", october(1, 0) - Seconds(1))});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(activity.freedText(), QStringLiteral("5 MB"));
    EXPECT_FALSE(activity.freedNothing());
    QList<double> expected(14, 0.0);
    expected[13] = 1.0;
    expected[9] = 0.25;
    EXPECT_EQ(activity.days(), expected);
    EXPECT_EQ(activity.firstDayText(), QStringLiteral("1 Oct"));
    EXPECT_EQ(activity.spokenDays(), QStringLiteral("Saturday 10 October 1 MB, Today 4 MB"));
}

TEST_F(ChangesShown, moveToYesterdayAtMidnight) {
    show({entry("", "", october(14, 9))});
    pass(std::chrono::hours(8));
    EXPECT_EQ(first("day"), QStringLiteral("Today"));
    EXPECT_EQ(activity.days().size(), 14);
    QSignalSpy changed(activity.rows(), &QAbstractItemModel::dataChanged);
    fake.clock.set(october(15, 0));
    fake.tasks.advance(std::chrono::minutes(1));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(first("day"), QStringLiteral("Yesterday"));
    EXPECT_EQ(activity.days().size(), 15);
}

}  // namespace
}  // namespace nookwise
