#include "tests/reader/ReaderPoolFixture.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <random>
#include <thread>
#include <vector>

namespace nookwise {
namespace {

/// Of this process.
std::vector<pid_t> children() {
    std::vector<pid_t> found;
    std::error_code over;
    std::filesystem::directory_iterator threads("/proc/self/task", over);
    for (; threads != std::filesystem::directory_iterator(); threads.increment(over)) {
        std::ifstream ids(threads->path() / "children");
        for (pid_t id = -1; ids >> id;) found.push_back(id);
    }
    return found;
}

/// Several callers, whose processes somebody kills at random.
class ReaderPoolKills : public ReaderPoolFixture {
  protected:
    static constexpr int callers = 4;
    static constexpr int kills = 200;

    void readUntilNoneIsKilled() {
        while (!isOver_) {
            const auto answer = reader().pdf(soon_, {});
            if (!answer)
                ++errors_;
            else if (answer.value() != "x")
                ++wrongTexts_;
            ++done_;
            done_.notify_all();
        }
    }

    /// A kill with every third file that is done.
    void killAll() {
        for (int kill = 0; kill < kills; ++kill) {
            for (int done = done_; done < kill * 3; done = done_) done_.wait(done);
            while (!killAny()) std::this_thread::yield();
        }
        isOver_ = true;
    }

    bool killAny() {
        const auto ids = children();
        if (ids.empty()) return false;
        const auto id = ids[std::uniform_int_distribution<std::size_t>(0, ids.size() - 1)(random_)];
        const auto handle = openProcess(id);
        // Meanwhile it may have become the number of a stranger.
        const auto still = children();
        return handle && std::find(still.begin(), still.end(), id) != still.end() &&
               sendSignal(handle, SIGKILL);
    }

    std::mt19937 random_{20'231'121};
    FileUrl soon_;
    std::atomic<bool> isOver_ = false;
    std::atomic<int> done_ = 0;
    std::atomic<int> errors_ = 0;
    std::atomic<int> wrongTexts_ = 0;
};

TEST_F(ReaderPoolKills, TwoHundredKillsCostAtMostAFileForEveryTwoAndNoneReadsAsEmpty) {
    auto limits = patientLimits();
    limits.processesOfARole = 2;
    makeReader(limits);
    soon_ = file("say-soon x");
    {
        std::vector<std::jthread> threads;
        for (int caller = 0; caller < callers; ++caller)
            threads.emplace_back([this] { readUntilNoneIsKilled(); });
        killAll();
    }
    EXPECT_EQ(wrongTexts_, 0);
    // Whoever loses its process once gets another.
    EXPECT_LE(errors_, kills / 2);
    EXPECT_EQ(text("say hello"), "hello");
    RecordProperty("errors", errors_);
    reader_.reset();
    EXPECT_FALSE(hasChildren());
}

}  // namespace
}  // namespace nookwise
