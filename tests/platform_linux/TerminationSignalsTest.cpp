#include "platform/linux/TerminationSignals.h"
#include "tests/platform_linux/Events.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

class EverySignal : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(caught, EverySignal, testing::Values(SIGTERM, SIGHUP, SIGINT));

TEST_P(EverySignal, isToldFromTheEventLoop) {
    int asked = 0;
    const TerminationSignals termination([&] { ++asked; });
    ::raise(GetParam());
    EXPECT_EQ(asked, 0);
    runEventsUntil([&] { return asked > 0; });
    EXPECT_EQ(asked, 1);
}

TEST_P(EverySignal, endsTheProcessTheSecondTime) {
    const TerminationSignals termination([] {});
    const pid_t child = ::fork();
    if (child == 0) {
        ::raise(GetParam());
        ::raise(GetParam());
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
}

TEST_P(EverySignal, hasItsUsualEffectAgainAfterwards) {
    struct sigaction before {};
    struct sigaction after {};
    ::sigaction(GetParam(), nullptr, &before);
    {
        const TerminationSignals termination([] {});
    }
    ::sigaction(GetParam(), nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}

TEST_P(EverySignal, staysIgnoredWhereItWas) {
    struct sigaction ignoring {};
    ignoring.sa_handler = SIG_IGN;
    struct sigaction before {};
    ::sigaction(GetParam(), &ignoring, &before);
    {
        int asked = 0;
        const TerminationSignals termination([&] { ++asked; });
        ::raise(GetParam());
        QCoreApplication::processEvents();
        EXPECT_EQ(asked, 0);
    }
    ::sigaction(GetParam(), &before, nullptr);
}

}  // namespace
}  // namespace nookwise
