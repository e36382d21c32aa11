#include "tests/faults/Grounds.h"
#include "tests/faults/Invariants.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <iostream>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// Told when all scenarios of this process are through.
class Tally : public testing::Environment {
  public:
    void TearDown() override {
        if (runs > 0)
            std::cout << "faults: " << runs << " runs, " << kills << " of them killed, in "
                      << scenarios << " scenarios\n";
    }

    int scenarios = 0;
    int runs = 0;
    int kills = 0;
};

Tally& tally() {
    static auto* const environment = new Tally;
    static const auto* const registered = testing::AddGlobalTestEnvironment(environment);
    (void)registered;
    return *environment;
}
[[maybe_unused]] const auto& registeredBeforeAllTests = tally();

/// Calls that use up space, and those that only find out then that none was left.
const std::set<std::string> needSpace{"copy_file_range", "fsetxattr", "fsync",    "ftruncate",
                                      "linkat",          "mkdir",     "mkdirat",  "mknodat",
                                      "openat",          "pwrite64",  "renameat", "renameat2",
                                      "symlinkat",       "syncfs",    "write"};

/// Calls that may wait, and be interrupted.
const std::set<std::string> canBeInterrupted{
    "close", "copy_file_range", "fsync",  "ftruncate", "getdents64",
    "ioctl", "newfstatat",      "openat", "pread64",   "pwrite64",
    "read",  "renameat2",       "statx",  "unlinkat",  "write"};

std::vector<Fault> faultsOf(const SystemCall& call) {
    std::vector<Fault> faults{
        {call, "signal=KILL"}, {call, "error=EIO"}, {call, "error=EIO", true}};
    if (needSpace.contains(call.name)) faults.push_back({call, "error=ENOSPC", true});
    if (canBeInterrupted.contains(call.name)) faults.push_back({call, "error=EINTR"});
    return faults;
}

std::string shown(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += "\n  " + line;
    return text;
}

class EveryFault : public testing::TestWithParam<Scenario> {
  protected:
    void SetUp() override {
        const auto scenario = GetParam();
        const auto& places = grounds();
        if (const auto obstacle = strace_.obstacle()) GTEST_SKIP() << *obstacle;
        if (scenario.volumes == Volumes::two && places.far.empty())
            GTEST_SKIP() << "there is no second file system here";
        const bool isInVolumeTrash =
            scenario.operation == Operation::trash && scenario.volumes == Volumes::two;
        if (isInVolumeTrash && places.whyNoVolumes) GTEST_SKIP() << *places.whyNoVolumes;
    }

    std::vector<SystemCall> learnCalls() const {
        const World world(GetParam());
        const auto before = world.everything();
        auto calls = strace_.callsOf(world.worker());
        EXPECT_EQ(shown(violations(world, before, {Outcome::reportedSuccess}, Moment::atOnce)), "");
        if (GetParam().operation == Operation::save) {
            EXPECT_NE(world.everything(), before);
        }
        return calls;
    }

    void expectNothingLost(const Fault& fault) const {
        const World world(GetParam());
        const auto before = world.everything();
        const auto run = strace_.run(world.worker(), fault);
        auto wrong = violations(world, before, run, Moment::atOnce);
        world.recover();
        for (auto& late : violations(world, before, run, Moment::afterRecovery))
            wrong.push_back("after the next start: " + late);
        if (!run.isFaulted) wrong.emplace_back("the fault did not happen");
        EXPECT_TRUE(wrong.empty())
            << fault.call.name << " " << fault.call.occurrence << " " << fault.effect
            << (fault.isLasting ? " from then on" : "") << shown(wrong) << "\n"
            << run.log;
        ++tally().runs;
        tally().kills += run.outcome == Outcome::killed ? 1 : 0;
    }

  private:
    const TemporaryFolder logs_;
    const Strace strace_{logs_.path("log")};
};
INSTANTIATE_TEST_SUITE_P(when, EveryFault, testing::ValuesIn(everyScenario()),
                         [](const auto& test) { return nameOf(test.param); });

TEST_P(EveryFault, losesNothing) {
    const auto calls = learnCalls();
    ASSERT_FALSE(calls.empty());
    for (const auto& call : calls) {
        for (const auto& fault : faultsOf(call)) expectNothingLost(fault);
    }
    ++tally().scenarios;
}

TEST(FaultSweep, noticesWhatAnOperationCanLose) {
    const TemporaryFolder logs;
    const Strace strace(logs.path("log"));
    if (const auto obstacle = strace.obstacle()) GTEST_SKIP() << *obstacle;
    const Scenario scenario{.operation = Operation::move};
    const auto careless = [](const World& world) {
        auto command = world.worker();
        command[1] = "carelessmove";
        return command;
    };
    const auto calls = strace.callsOf(careless(World(scenario)));
    std::vector<std::string> noticed;
    for (const auto& call : calls) {
        const World world(scenario);
        const auto before = world.everything();
        const auto run = strace.run(careless(world), {call, "signal=KILL"});
        ASSERT_EQ(run.outcome, Outcome::killed);
        const auto wrong = violations(world, before, run, Moment::afterRecovery);
        noticed.insert(noticed.end(), wrong.begin(), wrong.end());
    }
    EXPECT_THAT(noticed, testing::ElementsAre("the item is whole neither here nor there",
                                              testing::HasSubstr("there is something new")));
}

}  // namespace
}  // namespace nookwise
