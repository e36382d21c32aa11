#include "platform/linux/SingleInstance.h"
#include "tests/platform_linux/Events.h"
#include "tests/support/TemporaryFolder.h"

#include <QLocalSocket>
#include <filesystem>
#include <optional>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

namespace nookwise {
namespace {

class SingleInstanceTest : public testing::Test {
  protected:
    SingleInstance::Places places() {
        return SingleInstance::places(home_.url("own"), home_.path().native());
    }

    TemporaryFolder home_;
};

TEST_F(SingleInstanceTest, isTheFirstOne) {
    EXPECT_TRUE(SingleInstance::claim(places()));
    EXPECT_TRUE(std::filesystem::exists(home_.path("own")));
}

TEST_F(SingleInstanceTest, turnsTheSecondOneAwayAndIsAskedToShowItself) {
    const auto first = SingleInstance::claim(places());
    int shown = 0;
    first->onShow([&] { ++shown; });
    EXPECT_FALSE(SingleInstance::claim(places()));
    runEventsUntil([&] { return shown == 1; });
    EXPECT_FALSE(SingleInstance::claim(places()));
    runEventsUntil([&] { return shown == 2; });
}

TEST_F(SingleInstanceTest, takesOverTheActivationTokenOfTheSecondOne) {
    const auto first = SingleInstance::claim(places());
    std::optional<QByteArray> token;
    first->onShow([&] { token = qgetenv("XDG_ACTIVATION_TOKEN"); });
    qputenv("XDG_ACTIVATION_TOKEN", "token-7");
    EXPECT_FALSE(SingleInstance::claim(places()));
    qunsetenv("XDG_ACTIVATION_TOKEN");
    runEventsUntil([&] { return token.has_value(); });
    EXPECT_EQ(*token, "token-7");
    EXPECT_TRUE(qgetenv("XDG_ACTIVATION_TOKEN").isEmpty()) << "a token is good for one time";
}

TEST_F(SingleInstanceTest, takesThePlaceOfOneThatIsAboutToEnd) {
    home_.write("own/instance.lock", "");
    const int other = ::open(home_.path("own/instance.lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    std::thread ending([&] { ::close(other); });
    EXPECT_TRUE(SingleInstance::claim(places()));
    ending.join();
}

TEST_F(SingleInstanceTest, answersNobodyAnyMoreWhenToldSo) {
    const auto first = SingleInstance::claim(places());
    first->stopAnswering();
    QLocalSocket another;
    another.connectToServer(QString::fromStdString(std::string(places().socket.path())));
    EXPECT_FALSE(another.waitForConnected());
}

TEST_F(SingleInstanceTest, makesRoomWhenItEnds) {
    SingleInstance::claim(places()).reset();
    EXPECT_TRUE(SingleInstance::claim(places()));
}

TEST_F(SingleInstanceTest, takesTheSocketOfOneThatWasKilled) {
    home_.write(std::filesystem::path(places().socket.path()).filename().native(), "left over");
    const auto first = SingleInstance::claim(places());
    bool isShown = false;
    first->onShow([&] { isShown = true; });
    EXPECT_FALSE(SingleInstance::claim(places()));
    runEventsUntil([&] { return isShown; });
}

TEST_F(SingleInstanceTest, isAloneOverItsOwnFilesOnly) {
    const auto first = SingleInstance::claim(places());
    const auto other =
        SingleInstance::claim(SingleInstance::places(home_.url("other"), home_.path().native()));
    EXPECT_TRUE(other);
    EXPECT_NE(places().socket,
              SingleInstance::places(home_.url("other"), home_.path().native()).socket);
}

TEST_F(SingleInstanceTest, listensInItsOwnFolderWhereThereIsNoRuntimeFolder) {
    EXPECT_EQ(SingleInstance::places(FileUrl("/own"), "").socket, FileUrl("/own/instance.socket"));
    EXPECT_EQ(SingleInstance::places(FileUrl("/own"), "relative").socket,
              FileUrl("/own/instance.socket"));
}

TEST_F(SingleInstanceTest, isTheOnlyOneWhereNothingCanBeWritten) {
    home_.write("own", "a file where the folder would be");
    EXPECT_TRUE(SingleInstance::claim(places()));
    EXPECT_TRUE(SingleInstance::claim(places()));
}

TEST_F(SingleInstanceTest, hangsUpOnWhoeverTalksTooMuch) {
    const auto first = SingleInstance::claim(places());
    bool isShown = false;
    first->onShow([&] { isShown = true; });
    QLocalSocket stranger;
    stranger.connectToServer(QString::fromStdString(std::string(places().socket.path())));
    ASSERT_TRUE(stranger.waitForConnected());
    stranger.write(QByteArray(100'000, 'x'));
    runEventsUntil([&] { return stranger.state() == QLocalSocket::UnconnectedState; });
    EXPECT_FALSE(isShown);
}

}  // namespace
}  // namespace nookwise
