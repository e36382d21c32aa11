#include "platform/linux/QtTasks.h"
#include "tests/support/FakePlatform.h"
#include "ui/window/EndTransfer.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <limits>
#include <utility>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// A store whose work is done on threads, as in the application.
class EndingWithin : public testing::Test {
  protected:
    EndingWithin() {
        fake.files.addFile(small.path(), {.contents = "a"});
        // Its copy would never end by itself.
        fake.files.addFile(endless.path(), {.size = std::numeric_limits<std::int64_t>::max()});
        fake.files.addFolder(disk.path());
        fake.files.makeVolume(disk.path());
        fake.files.onOperation([&](const FakeOperation& operation) {
            if (operation.kind == FakeOperation::Kind::copyPiece && operation.url == endless)
                isUnderWay = true;
        });
    }

    std::shared_ptr<AppStore> start() {
        return AppStore::create({fake.files, fake.metadata, fake.folders, fake.workspace,
                                 fake.defaults, fake.clock, tasks, fake.reader});
    }
    /// Has the endless file be under way.
    void transfer(AppStore& store, std::vector<FileUrl> urls) {
        store.transfer(std::move(urls), disk, TransferKind::move);
        ASSERT_TRUE(QTest::qWaitFor([&] { return isUnderWay.load(); }, mostMilliseconds));
    }

    const FileUrl small{"/home/user/Downloads/small.txt"};
    const FileUrl endless{"/home/user/Downloads/endless"};
    const FileUrl disk{"/media/disk"};
    static constexpr int mostMilliseconds = 60'000;
    std::atomic<bool> isUnderWay = false;
    FakePlatform fake;
    QtTasks tasks;
};

TEST_F(EndingWithin, ATransferHasWhatWasMovedInTheLog) {
    {
        const auto store = start();
        transfer(*store, {small, endless});
        endTransfer(*store);
        EXPECT_FALSE(store->transferring.get());
    }
    EXPECT_TRUE(fake.files.exists(endless));
    EXPECT_TRUE(fake.files.exists(disk.append("small.txt")));
    const auto entries = start()->activity.get();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries.front().title, "Moved 1 file to disk");
    EXPECT_EQ(entries.front().moves.front().original, small);
}

TEST_F(EndingWithin, ATransferThatMovedNothingLogsNothing) {
    const auto store = start();
    transfer(*store, {endless});
    endTransfer(*store);
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_TRUE(fake.files.exists(endless));
}

TEST_F(EndingWithin, ATransferIsWaitedForWhileTheApplicationIsAskedToQuitAgain) {
    const auto store = start();
    transfer(*store, {small, endless});
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));
    endTransfer(*store);
    EXPECT_FALSE(store->transferring.get());
    EXPECT_EQ(store->activity.get().size(), 1u);
    // Lets event loops run again.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
}

TEST_F(EndingWithin, NoTransferWaitsForNothing) {
    const auto store = start();
    endTransfer(*store);
    EXPECT_TRUE(store->activity.get().empty());
}

}  // namespace
}  // namespace nookwise
