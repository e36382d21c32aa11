#include "tests/changes/TransferFixture.h"
#include "tests/support/OrdinaryUser.h"

#include <csignal>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class EveryFailingTransfer : public EveryTransfer {
  protected:
    /// Lets an ordinary user do everything here.
    void openUp() const {
        for (const auto* const folder : {&home, &target(), &own})
            fs::permissions(folder->path(), fs::perms::all);
        if (::geteuid() == 0) giveAway(home.path());
    }
    static void giveAway(const fs::path& root) {
        constexpr uid_t nobody = 65534;
        for (const auto& entry : fs::recursive_directory_iterator(root))
            ASSERT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0);
    }
    bool isRename() const { return GetParam() == Way(Verb::move, Ground::same); }
};
INSTANTIATE_TEST_SUITE_P(transfers, EveryFailingTransfer, everyWay, wayName);

TEST_P(EveryFailingTransfer, tellsThatThereIsNoSource) {
    expectRefused(home.url("missing"), target().url("missing"),
                  std::errc::no_such_file_or_directory);
    expectRefused(home.url("missing/file"), target().url("file"),
                  std::errc::no_such_file_or_directory);
}

TEST_P(EveryFailingTransfer, tellsThatThereIsNoDestinationFolder) {
    home.write("file", "x");
    expectRefused(home.url("file"), target().url("missing/file"),
                  std::errc::no_such_file_or_directory);
    expectRefused(home.url("file"), home.url("file/below"), std::errc::not_a_directory);
}

TEST_P(EveryFailingTransfer, refusesNamesThatAreNoneOrTooLong) {
    home.write("file", "x");
    home.makeFolder("folder");
    expectRefused(home.url("file"), FileUrl("/"), std::errc::invalid_argument);
    expectRefused(home.url("file"), target().url(".."), std::errc::invalid_argument);
    expectRefused(FileUrl("/"), target().url("root"), std::errc::invalid_argument);
    expectRefused(home.url("folder/.."), target().url("a"), std::errc::invalid_argument);
    expectRefused(FileUrl(), target().url("a"), std::errc::invalid_argument);
    expectRefused(home.url("file"), target().url(std::string(256, 'n')),
                  std::errc::filename_too_long);
}

TEST_P(EveryFailingTransfer, reportsWhichNameWasTaken) {
    home.write("file", "x");
    target().write("file", "y");
    const auto done = transfer("file");
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().url, target().url("file"));
}

TEST_P(EveryFailingTransfer, leavesNothingBehindWhenAFileCannotBeRead) {
    home.write("folder/a", "x");
    home.write("folder/secret", "x");
    openUp();
    fs::permissions(home.path("folder/secret"), fs::perms::none);
    const OrdinaryUser user;
    if (isRename()) {
        EXPECT_TRUE(transfer("folder"));
    } else {
        const auto done = transfer("folder");
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().code, std::errc::permission_denied);
        EXPECT_EQ(names(home.path("folder")), "a secret");
        EXPECT_EQ(names(target().path()), "");
        EXPECT_EQ(recordNames(), "");
    }
}

TEST_P(EveryFailingTransfer, leavesNothingBehindWhenAFolderCannotBeRead) {
    home.write("folder/a", "x");
    home.makeFolder("folder/closed");
    openUp();
    fs::permissions(home.path("folder/closed"), fs::perms::none);
    const OrdinaryUser user;
    EXPECT_EQ(static_cast<bool>(transfer("folder")), isRename());
    EXPECT_EQ(names(target().path()), isRename() ? "folder" : "");
    EXPECT_EQ(recordNames(), "");
}

TEST_P(EveryFailingTransfer, respectsADestinationThatMayNotBeWritten) {
    home.write("file", "x");
    openUp();
    fs::permissions(target().path(), fs::perms(0555));
    const OrdinaryUser user;
    expectRefused(home.url("file"), target().url("file"), std::errc::permission_denied);
}

TEST_P(EveryFailingTransfer, leavesTheSourceWhereItMayNotBeRemoved) {
    home.write("closed/file", "x");
    openUp();
    fs::permissions(home.path("closed"), fs::perms(0555));
    const OrdinaryUser user;
    if (!isMove()) {
        EXPECT_TRUE(transfer(home.url("closed/file"), target().url("file")));
        return;
    }
    expectRefused(home.url("closed/file"), target().url("file"), std::errc::permission_denied);
}

TEST_P(EveryFailingTransfer, leavesAnothersFileInASharedFolder) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    home.write("shared/file", "x");
    openUp();
    ASSERT_EQ(::chown(home.path("shared").c_str(), 0, 0), 0);
    ASSERT_EQ(::chown(home.path("shared/file").c_str(), 1234, 1234), 0);
    fs::permissions(home.path("shared"), fs::perms(01777));
    const OrdinaryUser user;
    if (!isMove()) {
        EXPECT_TRUE(transfer(home.url("shared/file"), target().url("file")));
        return;
    }
    expectRefused(home.url("shared/file"), target().url("file"),
                  std::errc::operation_not_permitted);
}

TEST_P(EveryFailingTransfer, copiesNeitherMoreNorLessThanAFileSaysItHolds) {
    // The kernel makes it up when it is read and says that it is empty.
    const FileUrl made("/proc/self/status");
    const auto done = transfer(made, target().url("status"));
    ASSERT_FALSE(done);
    EXPECT_EQ(names(target().path()), "");
    EXPECT_EQ(recordNames(), "");
}

TEST_P(EveryFailingTransfer, leavesNothingBehindWhenTheDestinationTakesNoMoreBytes) {
    if (isRename()) GTEST_SKIP() << "a rename writes no bytes";
    home.write("folder/small", "x");
    home.write("folder/large", std::string(3'000'000, 'l'));
    rlimit sizes{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &sizes), 0);
    auto small = sizes;
    small.rlim_cur = 2'000'000;
    auto* const before = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto done = transfer("folder");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &sizes), 0);
    std::signal(SIGXFSZ, before);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().code, std::errc::file_too_large);
    EXPECT_EQ(names(home.path("folder")), "large small");
    EXPECT_EQ(names(target().path()), "");
    EXPECT_EQ(recordNames(), "");
}

TEST_P(EveryFailingTransfer, copiesNothingThatItCannotRecord) {
    if (isRename()) GTEST_SKIP() << "a rename leaves nothing half done";
    home.write("file", "x");
    own.write("unfinished", "a file in the way");
    const auto done = transfer("file");
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().code, std::errc::not_a_directory);
    EXPECT_EQ(names(home.path()), "file");
    EXPECT_EQ(names(target().path()), "");
}

class FailingMove : public TransferFixture {
  protected:
    void SetUp() override { useGround(Ground::other); }
};

TEST_F(FailingMove, findsOutBeforehandThatAFolderBelowCannotBeEmptied) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    home.write("folder/theirs/file", "x");
    for (const auto* const folder : {&home, &target(), &own})
        fs::permissions(folder->path(), fs::perms::all);
    ASSERT_EQ(::chown(home.path("folder").c_str(), 65534, 65534), 0);
    const OrdinaryUser user;
    const auto before = snapshot(home.path("folder"));
    const auto done = run(Verb::move, home.url("folder"), target().url("folder"));
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().code, std::errc::permission_denied);
    EXPECT_EQ(snapshot(home.path("folder")), before);
    EXPECT_EQ(names(target().path()), "");
    EXPECT_EQ(recordNames(), "");
}

TEST_F(FailingMove, givesAnotherOwnerNoProgramThatRunsWithRights) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    home.write("program", "x");
    for (const auto* const folder : {&home, &target(), &own})
        fs::permissions(folder->path(), fs::perms::all);
    ASSERT_EQ(::chown(home.path("program").c_str(), 1234, 1234), 0);
    ASSERT_EQ(::chmod(home.path("program").c_str(), 06755), 0);
    const OrdinaryUser user;
    ASSERT_TRUE(run(Verb::copy, home.url("program"), target().url("program")));
    struct stat status {};
    ASSERT_EQ(::stat(target().path("program").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & ALLPERMS, 0755U);
    EXPECT_EQ(status.st_uid, ::geteuid());
}

}  // namespace
}  // namespace nookwise
