// What other programs do in between cannot be timed; what they leave can be made beforehand.
#include "platform/linux/CopyTree.h"
#include "platform/linux/RemoveTree.h"
#include "tests/changes/TransferFixture.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class Race : public testing::Test {
  protected:
    Race() : folder_(openPath(home.path().native(), O_RDONLY | O_DIRECTORY)) {
        home.write("source/inner/a", "aaaa");
        home.write("source/b", "bb");
    }

    TreePlace at(const char* name) const { return {folder_.get(), name}; }
    Tree listed() const {
        Tree tree;
        EXPECT_TRUE(listTree(at("source"), TreeUse::copying, tree, {}));
        return tree;
    }
    void expectCopyFails(const std::function<void()>& interfere, int reason) const {
        const auto tree = listed();
        interfere();
        WatchedCopy unwatched{nobody};
        EXPECT_FALSE(copyTree(tree, at("source"), at("copy"), unwatched));
        EXPECT_EQ(errno, reason);
        EXPECT_TRUE(removeTree(at("copy")));
    }
    void expectSeen(const std::function<void()>& interfere) const {
        const auto tree = listed();
        EXPECT_TRUE(isTreeUnchanged(tree, at("source")));
        interfere();
        EXPECT_FALSE(isTreeUnchanged(tree, at("source")));
        std::size_t removed = 0;
        EXPECT_FALSE(removeListed(tree, at("source"), removed));
    }
    void replace(const char* relative, const char* contents) const {
        home.write("other", contents);
        fs::rename(home.path("other"), home.path(relative));
    }

    const TemporaryFolder home;
    const CopyWatch nobody;

  private:
    FileDescriptor folder_;
};

TEST_F(Race, noticesAPipeInPlaceOfAFileAndDoesNotWaitForIt) {
    expectCopyFails(
        [&] {
            fs::remove(home.path("source/b"));
            home.makePipe("source/b");
        },
        EBUSY);
}

TEST_F(Race, noticesAnotherFileOfTheSameLengthInPlaceOfOne) {
    expectCopyFails([&] { replace("source/inner/a", "AAAA"); }, EBUSY);
}

TEST_F(Race, neverFollowsALinkInPlaceOfAFile) {
    expectCopyFails(
        [&] {
            home.write("secret", "bb");
            fs::remove(home.path("source/b"));
            fs::create_symlink(home.path("secret"), home.path("source/b"));
        },
        ELOOP);
}

TEST_F(Race, neverFollowsALinkInPlaceOfAFolder) {
    expectCopyFails(
        [&] {
            fs::rename(home.path("source/inner"), home.path("elsewhere"));
            fs::create_symlink(home.path("elsewhere"), home.path("source/inner"));
        },
        ENOTDIR);
}

TEST_F(Race, noticesAFileThatVanished) {
    expectCopyFails([&] { fs::remove(home.path("source/b")); }, ENOENT);
}

TEST_F(Race, noticesAFileThatGrewOrShrank) {
    expectCopyFails([&] { fs::resize_file(home.path("source/b"), 5); }, EBUSY);
    expectCopyFails([&] { fs::resize_file(home.path("source/b"), 1); }, EBUSY);
}

TEST_F(Race, seesANewEntryBeforePublishingAndRemovesNoFolderThatHoldsIt) {
    expectSeen([&] { home.write("source/inner/new", "x"); });
    EXPECT_EQ(names(home.path("source/inner")), "new");
}

TEST_F(Race, seesAReplacedFileBeforePublishingAndNeverRemovesIt) {
    expectSeen([&] { replace("source/inner/a", "AAAA"); });
    EXPECT_EQ(names(home.path("source/inner")), "a");
}

TEST_F(Race, seesAFileThatWasWrittenInPlaceAndNeverRemovesIt) {
    expectSeen([&] { fs::resize_file(home.path("source/b"), 3); });
    EXPECT_EQ(names(home.path("source")).find('b'), 0U);
}

TEST_F(Race, seesThatPermissionsChanged) {
    const auto tree = listed();
    fs::permissions(home.path("source/b"), fs::perms::owner_read);
    EXPECT_FALSE(isTreeUnchanged(tree, at("source")));
}

TEST_F(Race, knowsATreeAgainUnderAnotherName) {
    const auto tree = listed();
    fs::rename(home.path("source"), home.path("hidden"));
    EXPECT_TRUE(isTreeUnchanged(tree, at("hidden")));
    EXPECT_FALSE(isTreeUnchanged(tree, at("source")));
}

TEST_F(Race, goesOnWhereOthersRemovedAFile) {
    const auto tree = listed();
    fs::remove_all(home.path("source/inner"));
    std::size_t removed = 0;
    EXPECT_TRUE(removeListed(tree, at("source"), removed));
    EXPECT_EQ(removed, tree.size());
    EXPECT_EQ(names(home.path()), "");
}

TEST_F(Race, tellsWhatOthersWroteFromWhatIsLeft) {
    const auto tree = listed();
    fs::remove(home.path("source/b"));
    EXPECT_FALSE(holdsUnlisted(tree, at("source")));
    home.write("source/inner/new", "x");
    EXPECT_TRUE(holdsUnlisted(tree, at("source")));
    fs::remove(home.path("source/inner/new"));
    EXPECT_FALSE(holdsUnlisted(tree, at("source")));
    fs::resize_file(home.path("source/inner/a"), 1);
    EXPECT_TRUE(holdsUnlisted(tree, at("source")));
}

TEST_F(Race, removesAllNamesOfOneFile) {
    fs::create_hard_link(home.path("source/b"), home.path("source/c"));
    const auto tree = listed();
    std::size_t removed = 0;
    EXPECT_TRUE(removeListed(tree, at("source"), removed));
    EXPECT_EQ(removed, tree.size());
    EXPECT_EQ(names(home.path()), "");
}

class MoveThatIsWrittenInto : public TransferFixture {
  protected:
    void SetUp() override { useGround(Ground::other); }
};

TEST_F(MoveThatIsWrittenInto, losesNothingInWhicheverMomentThatIs) {
    for (int i = 0; i < 300; ++i) home.write("folder/sub/" + std::to_string(i), "x");
    const fs::path copy = target().path("folder");
    std::atomic<bool> isOver = false;
    bool isWritten = false;
    std::thread other([&] {
        // The copy is there: from now on the move has to find out, or leaves both.
        while (!fs::exists(copy) && !isOver) std::this_thread::yield();
        std::ofstream theirs(copy / "sub/theirs");
        theirs << "precious";
        theirs.close();
        isWritten = static_cast<bool>(theirs);
        std::ofstream(home.path("folder/sub/1")) << "changed meanwhile";
    });
    const auto moved = run(Verb::move, home.url("folder"), target().url("folder"));
    isOver = true;
    other.join();
    if (isWritten) {
        EXPECT_EQ(contents(copy / "sub/theirs"), "precious");
    }
    if (!moved) {
        EXPECT_TRUE(fs::exists(home.path("folder/sub/299")));
    }
    EXPECT_TRUE(fs::exists(copy / "sub/299") || fs::exists(home.path("folder/sub/299")));
}

}  // namespace
}  // namespace nookwise
