// What a transfer tells who watches it, and what is left when it is ended before its time.
#include "tests/changes/TransferFixture.h"

#include <cstdint>
#include <filesystem>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t large = 20'000'001;

class WatchedTransfer : public EveryTransfer {
  protected:
    void SetUp() override {
        EveryTransfer::SetUp();
        if (IsSkipped()) return;
        home.write("film.mp4", std::string(large, 'f'));
        home.write("folder/first", std::string(6'000'000, '1'));
        home.write("folder/sub/second", std::string(7'000'000, '2'));
        home.write("folder/sub/third", "3");
        fs::create_symlink("nowhere", home.path("folder/link"));
        before_ = snapshot(home.path());
    }

    CopyWatch watch() {
        return {.planned =
                    [this](std::int64_t bytes) {
                        EXPECT_FALSE(planned) << "told twice";
                        EXPECT_TRUE(told.empty()) << "told too late";
                        planned = bytes;
                        if (endsWhenPlanned) stop.request_stop();
                    },
                .copied =
                    [this](std::int64_t bytes) {
                        told.push_back(bytes);
                        if (told.size() == endsAtPiece) stop.request_stop();
                    },
                .stop = stop.get_token()};
    }

    std::int64_t toldAltogether() const {
        return std::accumulate(told.begin(), told.end(), std::int64_t{0});
    }

    /// That it ends as cancelled and everything is as before.
    void expectCancelled(std::string_view name) {
        const auto done = transfer(name, watch());
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().code, std::errc::operation_canceled) << done.error().code.message();
        EXPECT_EQ(snapshot(home.path()), before_);
        EXPECT_EQ(names(target().path()), "");
        EXPECT_EQ(recordNames(), "");
    }

    /// Whether the film's bytes came in one piece, as where a file system need not copy them.
    bool isShared() const { return !told.empty() && told.front() == large; }

    std::stop_source stop;
    bool endsWhenPlanned = false;
    std::size_t endsAtPiece = 0;
    std::optional<std::int64_t> planned;
    std::vector<std::int64_t> told;

  private:
    std::map<std::string, std::string> before_;
};
INSTANTIATE_TEST_SUITE_P(transfers, WatchedTransfer, everyWay, wayName);

class WatchedRename : public WatchedTransfer {};
INSTANTIATE_TEST_SUITE_P(transfers, WatchedRename, testing::Values(Way{Verb::move, Ground::same}),
                         wayName);

/// Where bytes are copied.
class WatchedCopying : public WatchedTransfer {};
INSTANTIATE_TEST_SUITE_P(transfers, WatchedCopying,
                         testing::Values(Way{Verb::copy, Ground::same},
                                         Way{Verb::copy, Ground::other},
                                         Way{Verb::move, Ground::other}),
                         wayName);

TEST_P(WatchedCopying, tellsEveryByteOfAFileInPieces) {
    ASSERT_TRUE(transfer("film.mp4", watch()));
    EXPECT_EQ(planned, large);
    EXPECT_EQ(toldAltogether(), large);
    if (isShared()) GTEST_SKIP() << "this file system shares the bytes instead of copying them";
    EXPECT_GT(told.size(), 1u);
}

TEST_P(WatchedCopying, tellsEveryByteOfAFolder) {
    ASSERT_TRUE(transfer("folder", watch()));
    EXPECT_EQ(planned, 13'000'001);
    EXPECT_EQ(toldAltogether(), 13'000'001);
}

TEST_P(WatchedCopying, countsAFileOfSeveralNamesOnce) {
    fs::create_hard_link(home.path("folder/first"), home.path("folder/again"));
    ASSERT_TRUE(transfer("folder", watch()));
    EXPECT_EQ(planned, 13'000'001);
    EXPECT_EQ(toldAltogether(), 13'000'001);
}

TEST_P(WatchedCopying, countsHoles) {
    constexpr std::int64_t size = 3LL << 30U;
    home.write("disk.img", "begin");
    fs::resize_file(home.path("disk.img"), static_cast<std::uintmax_t>(size));
    ASSERT_TRUE(transfer("disk.img", watch()));
    EXPECT_EQ(planned, size);
    EXPECT_EQ(toldAltogether(), size);
}

TEST_P(WatchedCopying, planningNothingIsTold) {
    home.write("empty", "");
    ASSERT_TRUE(transfer("empty", watch()));
    EXPECT_EQ(planned, 0);
    EXPECT_TRUE(told.empty());
}

TEST_P(WatchedRename, tellsNothing) {
    ASSERT_TRUE(transfer("film.mp4", watch()));
    ASSERT_TRUE(transfer("folder", watch()));
    EXPECT_FALSE(planned);
    EXPECT_TRUE(told.empty());
}

TEST_P(WatchedTransfer, isNotBegunAfterAStop) {
    stop.request_stop();
    expectCancelled("film.mp4");
    expectCancelled("folder");
}

TEST_P(WatchedCopying, leavesNothingWhenEndedBeforeTheFirstByte) {
    endsWhenPlanned = true;
    expectCancelled("folder");
}

TEST_P(WatchedCopying, leavesNothingWhenEndedInsideAFile) {
    endsAtPiece = 1;
    expectCancelled("film.mp4");
    if (isShared()) GTEST_SKIP() << "this file system shares the bytes instead of copying them";
    EXPECT_LT(toldAltogether(), 3 * large / 4) << "it went on";
}

TEST_P(WatchedCopying, leavesNothingWhenEndedInsideAFolder) {
    endsAtPiece = 2;
    expectCancelled("folder");
}

TEST_P(WatchedCopying, leavesNothingWhenEndedAtItsLastByte) {
    ASSERT_TRUE(copyItem(home.url("folder"), target().url("folder"), unfinished, watch()));
    fs::remove_all(target().path("folder"));
    endsAtPiece = told.size();
    planned.reset();
    told.clear();
    expectCancelled("folder");
    EXPECT_EQ(toldAltogether(), planned);
}

TEST_P(WatchedCopying, canBeDoneAfterItWasEnded) {
    endsAtPiece = 1;
    expectCancelled("folder");
    const auto before = snapshot(home.path("folder"));
    ASSERT_TRUE(transfer("folder"));
    EXPECT_EQ(snapshot(target().path("folder")), before);
    EXPECT_EQ(names(home.path()), isMove() ? "film.mp4" : "film.mp4 folder");
}

}  // namespace
}  // namespace nookwise
