#include "tests/store/RealHome.h"

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class RealSweep : public RealHome {};

TEST_F(RealSweep, isUndoneAfterARestart) {
    home.write("Downloads/old report.pdf", "bytes");
    fs::permissions(home.path("Downloads/old report.pdf"), fs::perms(0640));
    const auto written = fs::last_write_time(home.path("Downloads/old report.pdf"));
    sweep(*start(), PileKind::forgotten);
    EXPECT_FALSE(exists("Downloads/old report.pdf"));
    EXPECT_EQ(contents("data/Trash/files/old report.pdf"), "bytes");
    EXPECT_TRUE(exists("data/Trash/info/old report.pdf.trashinfo"));

    const auto later = start();
    ASSERT_EQ(later->activity.get().size(), 1u);
    EXPECT_EQ(later->activity.get().front().title, "Swept 1 downloads");
    EXPECT_TRUE(pile(*later, PileKind::forgotten).empty());
    later->putBack(later->activity.get().front().id);
    world.tasks.runEverything();
    EXPECT_EQ(contents("Downloads/old report.pdf"), "bytes");
    EXPECT_EQ(fs::last_write_time(home.path("Downloads/old report.pdf")), written);
    EXPECT_EQ(fs::status(home.path("Downloads/old report.pdf")).permissions(), fs::perms(0640));
    EXPECT_FALSE(exists("data/Trash/info/old report.pdf.trashinfo"));
    EXPECT_EQ(pile(*later, PileKind::forgotten).size(), 1u);
    EXPECT_TRUE(start()->activity.get().front().restored);
}

TEST_F(RealSweep, ofOddNamesIsUndone) {
    const std::vector<std::string> names{"100%.txt",
                                         "new\nline",
                                         "\xff\xfe",
                                         std::string(255, 'n'),
                                         std::string(251, 'x') + ".pdf",
                                         "trailing. ",
                                         "ä"};
    for (const auto& name : names) home.write("Downloads/" + name, name);
    auto store = start();
    sweep(*store, PileKind::forgotten);
    for (const auto& name : names) EXPECT_FALSE(exists("Downloads/" + name)) << name;
    store = start();
    store->undoLast();
    EXPECT_EQ(store->toast.get()->message, "Put back 7 files");
    for (const auto& name : names) EXPECT_EQ(contents("Downloads/" + name), name);
}

TEST_F(RealSweep, goesOnPastFilesThatVanishedOrBecameSomethingElse) {
    home.write("Downloads/vanishes", "1");
    home.write("Downloads/replaced", "2");
    home.write("Downloads/folder now", "3");
    const auto store = start();
    fs::remove(home.path("Downloads/vanishes"));
    home.write("Downloads/replaced", "new bytes");
    fs::remove(home.path("Downloads/folder now"));
    home.write("Downloads/folder now/inside", "kept");
    sweep(*store, PileKind::forgotten);
    EXPECT_TRUE(store->toast.get()->message.ends_with(" freed · 1 skipped"));
    EXPECT_EQ(contents("data/Trash/files/replaced"), "new bytes");
    store->undoLast();
    EXPECT_EQ(contents("Downloads/folder now/inside"), "kept");
    EXPECT_EQ(contents("Downloads/replaced"), "new bytes");
}

TEST_F(RealSweep, putsBackBesideWhatTookThePlace) {
    home.write("Downloads/Report.pdf", "old");
    auto store = start();
    sweep(*store, PileKind::forgotten);
    home.write("Downloads/Report.pdf", "new");
    home.write("Downloads/Report (2).pdf", "newer");
    store->undoLast();
    EXPECT_EQ(contents("Downloads/Report.pdf"), "new");
    EXPECT_EQ(contents("Downloads/Report (2).pdf"), "newer");
    EXPECT_EQ(contents("Downloads/Report (3).pdf"), "old");
}

TEST_F(RealSweep, putsBackIntoAFolderThatIsMadeAgain) {
    home.write("Downloads/project notes/deep/old.txt", "bytes");
    auto store = start();
    sweep(*store, PileKind::forgotten);
    fs::remove_all(home.path("Downloads/project notes"));
    store->undoLast();
    EXPECT_EQ(contents("Downloads/project notes/deep/old.txt"), "bytes");
}

TEST_F(RealSweep, movesAndMovesBack) {
    home.write("Downloads/a.txt", "mine");
    home.write("Documents/a.txt", "there before");
    auto store = start();
    store->transfer({home.url("Downloads/a.txt")}, home.url("Documents"), TransferKind::move);
    world.tasks.runEverything();
    EXPECT_EQ(store->toast.get()->message, "1 file moved to Documents");
    EXPECT_EQ(contents("Documents/a (2).txt"), "mine");
    EXPECT_EQ(contents("Documents/a.txt"), "there before");
    store = start();
    store->undoLast();
    EXPECT_EQ(contents("Downloads/a.txt"), "mine");
    EXPECT_FALSE(exists("Documents/a (2).txt"));
}

TEST_F(RealSweep, copiesAndRemovesTheCopies) {
    home.write("Downloads/a.txt", "mine");
    auto store = start();
    store->transfer({home.url("Downloads/a.txt")}, home.url("Documents"), TransferKind::copy);
    world.tasks.runEverything();
    EXPECT_EQ(contents("Documents/a.txt"), "mine");
    store->undoLast();
    EXPECT_FALSE(exists("Documents/a.txt"));
    EXPECT_EQ(contents("Downloads/a.txt"), "mine");
}

}  // namespace
}  // namespace nookwise
