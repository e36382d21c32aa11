#include "tests/ui/StoreFixture.h"
#include "ui/sweep/SweepModel.h"

namespace nookwise {
namespace {

class SweepTrashed : public StoreFixture {
  protected:
    SweepTrashed() {
        fake.files.addFile("/home/user/Downloads/a.zip", {.size = 600 * megabyte});
        fake.files.addFile("/home/user/Downloads/b.mov", {.size = 300 * megabyte});
        setPile(PileKind::forgotten, {ticked("/home/user/Downloads/a.zip", 600 * megabyte),
                                      ticked("/home/user/Downloads/b.mov", 300 * megabyte),
                                      unticked("/home/user/Downloads/c.pdf", 100 * megabyte)});
        store->select(PileKind::forgotten);
    }

    PilesModel piles{*store};
    SweepModel sweep{*store, fake.folders.home(), piles};
};

TEST_F(SweepTrashed, saysWhatTheButtonDoes) {
    EXPECT_TRUE(sweep.canTrash());
    EXPECT_EQ(sweep.trashText(), QStringLiteral("Trash selected (2 · 900 MB)"));
    sweep.toggle(0);
    EXPECT_EQ(sweep.trashText(), QStringLiteral("Trash selected (1 · 300 MB)"));
    sweep.selectNone();
    EXPECT_FALSE(sweep.canTrash());
    EXPECT_EQ(sweep.trashText(), QStringLiteral("Trash selected (0)"));
}

TEST_F(SweepTrashed, groupsTheCountsDigits) {
    std::vector<SweepItem> items;
    for (int i = 0; i < 1'203; ++i)
        items.push_back(ticked("/home/user/Downloads/f" + std::to_string(i), 1'000));
    setPile(PileKind::forgotten, std::move(items));
    sweep.selectAll();
    EXPECT_EQ(sweep.trashText(), QStringLiteral("Trash selected (1,203 · 1.2 MB)"));
}

TEST_F(SweepTrashed, asksForWhatIsTicked) {
    sweep.toggle(0);
    sweep.trashTicked();
    const auto& request = store->pendingTrash.get();
    ASSERT_TRUE(request);
    ASSERT_EQ(request->files.size(), 1U);
    EXPECT_EQ(request->files[0].url.path(), "/home/user/Downloads/b.mov");
    EXPECT_EQ(request->pile, PileKind::forgotten);
    EXPECT_EQ(request->source, "Forgotten downloads");
}

TEST_F(SweepTrashed, asksNothingWhenNothingIsTicked) {
    sweep.selectNone();
    sweep.trashTicked();
    EXPECT_FALSE(store->pendingTrash.get());
}

TEST_F(SweepTrashed, showsWhatIsLeft) {
    sweep.trashTicked();
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    EXPECT_EQ(texts(sweep.rows(), "name"), QStringList{"c.pdf"});
    EXPECT_EQ(sweep.totalText(), QStringLiteral("100 MB"));
    EXPECT_EQ(sweep.countText(), QStringLiteral("1 file"));
    EXPECT_EQ(sweep.tickedText(), QStringLiteral("0 of 1 ticked"));
    EXPECT_EQ(sweep.trashText(), QStringLiteral("Trash selected (0)"));
    EXPECT_EQ(sweep.comesBackText(), QStringLiteral("Nothing ticked"));
    EXPECT_EQ(texts(sweep.strip(), "name"), QStringList{"c"});
}

TEST_F(SweepTrashed, keepsWhatCouldNotBeMoved) {
    fake.files.forbidChanges("/home/user/Downloads/a.zip");
    sweep.trashTicked();
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    EXPECT_EQ(texts(sweep.rows(), "name"), QStringList({"a.zip", "c.pdf"}));
    EXPECT_EQ(sweep.trashText(), QStringLiteral("Trash selected (1 · 600 MB)"));
}

}  // namespace
}  // namespace nookwise
