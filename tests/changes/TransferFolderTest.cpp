#include "tests/changes/TransferFixture.h"

#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

class EveryTransferOfFolders : public EveryTransfer {
  protected:
    void makeSocket(const std::string& relative) const {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const auto path = home.path(relative);
        ASSERT_LT(path.size(), sizeof address.sun_path);
        path.copy(address.sun_path, path.size());
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ::close(socket);
    }
};
INSTANTIATE_TEST_SUITE_P(transfers, EveryTransferOfFolders, everyWay, wayName);

TEST_P(EveryTransferOfFolders, bringsEverythingInItOver) {
    home.write("folder/a.txt", "a");
    home.write("folder/.hidden/b.txt", "bb");
    home.makeFolder("folder/empty");
    home.makePipe("folder/pipe");
    home.write("folder/\xff", "not UTF-8");
    fs::create_symlink("a.txt", home.path("folder/link"));
    fs::create_symlink("/", home.path("folder/root"));
    fs::create_symlink("loop", home.path("folder/loop"));
    expectWhole("folder");
}

TEST_P(EveryTransferOfFolders, bringsAnEmptyFolderOver) {
    home.makeFolder("folder");
    expectWhole("folder");
}

TEST_P(EveryTransferOfFolders, keepsNamesThatShareOneFile) {
    home.write("folder/a", "shared");
    fs::create_directory(home.path("folder/inner"));
    fs::create_hard_link(home.path("folder/a"), home.path("folder/inner/b"));
    fs::create_hard_link(home.path("folder/a"), home.path("folder/c"));
    expectWhole("folder");
    EXPECT_TRUE(fs::equivalent(target().path("folder/a"), target().path("folder/inner/b")));
}

TEST_P(EveryTransferOfFolders, takesFoldersDeeperThanAProcessHasFiles) {
    rlimit files{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &files), 0);
    auto few = files;
    few.rlim_cur = 32;
    std::string relative = "folder";
    for (int i = 0; i < 200; ++i) relative += "/d";
    home.write(relative + "/file", "x");
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const auto done = transfer("folder");
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &files), 0);
    ASSERT_TRUE(done) << done.error().code.message();
    EXPECT_TRUE(fs::exists(target().path(relative + "/file")));
    EXPECT_EQ(names(home.path()), isMove() ? "" : "folder");
}

TEST_P(EveryTransferOfFolders, refusesToGoIntoItself) {
    home.write("folder/inner/file", "x");
    expectRefused(home.url("folder"), home.url("folder/copy"), std::errc::invalid_argument);
    expectRefused(home.url("folder"), home.url("folder/inner/copy"), std::errc::invalid_argument);
    expectRefused(home.url("folder"), home.url("folder/../folder/copy"),
                  std::errc::invalid_argument);
}

TEST_P(EveryTransferOfFolders, refusesToGoIntoItselfThroughALink) {
    home.makeFolder("folder/inner");
    fs::create_symlink(home.path("folder/inner"), target().path("link"));
    expectRefused(home.url("folder"), target().url("link/copy"), std::errc::invalid_argument);
}

TEST_P(EveryTransferOfFolders, mayGoBesideItselfUnderALongerName) {
    home.write("folder/file", "x");
    const auto before = snapshot(home.path("folder"));
    ASSERT_TRUE(transfer(home.url("folder"), home.url("folder 2")));
    EXPECT_EQ(snapshot(home.path("folder 2")), before);
}

TEST_P(EveryTransferOfFolders, carriesSocketsOnlyByRenaming) {
    home.write("folder/a.txt", "a");
    makeSocket("folder/socket");
    if (GetParam() == Way(Verb::move, Ground::same)) return expectWhole("folder");
    expectRefused(home.url("folder"), target().url("folder"), std::errc::operation_not_supported);
    expectRefused(home.url("folder/socket"), target().url("socket"),
                  std::errc::operation_not_supported);
}

class MoveOfFolders : public TransferFixture {
  protected:
    void SetUp() override { useGround(Ground::other); }
};

TEST_F(MoveOfFolders, takesReadOnlyFoldersAlongAsARenameDoes) {
    home.write("folder/inner/file", "x");
    ASSERT_EQ(::chmod(home.path("folder/inner").c_str(), 0555), 0);
    ASSERT_EQ(::chmod(home.path("folder").c_str(), 0555), 0);
    const auto before = snapshot(home.path("folder"));
    const auto done = run(Verb::move, home.url("folder"), target().url("folder"));
    ASSERT_TRUE(done) << done.error().code.message();
    EXPECT_EQ(snapshot(target().path("folder")), before);
    EXPECT_EQ(names(home.path()), "");
    EXPECT_EQ(recordNames(), "");
}

}  // namespace
}  // namespace nookwise
