#include "tests/store/RealHome.h"
#include "tests/support/OrdinaryUser.h"

#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class RealLog : public RealHome {
  protected:
    RealLog() { home.write("Downloads/old.txt", "bytes"); }

    mode_t mode(std::string_view relative) const {
        struct stat status {};
        EXPECT_EQ(::lstat(home.path(relative).c_str(), &status), 0) << relative;
        return status.st_mode & 07777;
    }

    /// Has the ordinary user own it who a root process becomes for a test.
    void giveHomeAway() const {
        if (::geteuid() != 0) return;
        constexpr uid_t nobody = 65534;
        ASSERT_EQ(::chown(home.path().c_str(), nobody, nobody), 0);
        for (const auto& entry : fs::recursive_directory_iterator(home.path()))
            ASSERT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0);
    }
};

TEST_F(RealLog, isForItsOwnerAlone) {
    sweep(*start(), PileKind::forgotten);
    EXPECT_EQ(mode("data/Nookwise"), 0700u);
    EXPECT_EQ(mode(log), 0600u);
}

TEST_F(RealLog, thatIsTornIsEmptyAndReplacedByTheNextSave) {
    home.write(log, "[{\"id\":\"5F1B9A52");
    const auto store = start();
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_EQ(contents(log), "[{\"id\":\"5F1B9A52");
    sweep(*store, PileKind::forgotten);
    EXPECT_EQ(start()->activity.get().size(), 1u);
    EXPECT_EQ(mode(log), 0600u) << "also where it was wider";
}

TEST_F(RealLog, thatIsHugeIsEmpty) {
    home.write(log, "[");
    fs::resize_file(home.path(log), std::uintmax_t{1} << 40);
    EXPECT_TRUE(start()->activity.get().empty());
}

TEST_F(RealLog, thatIsAPipeIsNotWaitedForNorReplaced) {
    home.makeFolder("data/Nookwise");
    home.makePipe(log);
    const auto store = start();
    EXPECT_TRUE(store->activity.get().empty());
    sweep(*store, PileKind::forgotten);
    EXPECT_TRUE(fs::is_fifo(home.path(log)));
    EXPECT_EQ(store->activity.get().size(), 1u);
}

TEST_F(RealLog, thatIsAFolderIsLeftAlone) {
    home.write(log + "/kept", "kept");
    const auto store = start();
    sweep(*store, PileKind::forgotten);
    EXPECT_EQ(contents(log + "/kept"), "kept");
    store->undoLast();
    EXPECT_EQ(contents("Downloads/old.txt"), "bytes");
}

TEST_F(RealLog, thatIsALinkStaysOne) {
    home.write("synced/log.json", "[]");
    home.makeFolder("data/Nookwise");
    fs::create_symlink(home.path("synced/log.json"), home.path(log));
    sweep(*start(), PileKind::forgotten);
    EXPECT_TRUE(fs::is_symlink(home.path(log)));
    EXPECT_NE(contents("synced/log.json"), "[]");
    EXPECT_EQ(start()->activity.get().size(), 1u);
}

TEST_F(RealLog, thatLeadsInACircleIsEmpty) {
    home.makeFolder("data/Nookwise");
    fs::create_symlink("activity.json", home.path(log));
    const auto store = start();
    sweep(*store, PileKind::forgotten);
    EXPECT_EQ(store->activity.get().size(), 1u);
}

TEST_F(RealLog, thatCannotBeWrittenCostsNoFile) {
    home.makeFolder("data/Nookwise");
    giveHomeAway();
    const OrdinaryUser user;
    ASSERT_EQ(::chmod(home.path("data/Nookwise").c_str(), 0555), 0);
    const auto store = start();
    sweep(*store, PileKind::forgotten);
    EXPECT_FALSE(exists(log));
    EXPECT_EQ(store->activity.get().size(), 1u);
    store->undoLast();
    EXPECT_EQ(contents("Downloads/old.txt"), "bytes");
}

TEST_F(RealLog, isSavedIntoAFolderThatCameBack) {
    const auto store = start();
    fs::remove_all(home.path("data/Nookwise"));
    sweep(*store, PileKind::forgotten);
    EXPECT_FALSE(exists(log));
    home.makeFolder("data/Nookwise");
    store->undoLast();
    EXPECT_TRUE(exists(log));
}

}  // namespace
}  // namespace nookwise
