#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

using namespace std::chrono_literals;

class LongTransfer : public StoreFixture {
  protected:
    LongTransfer() {
        world.files.addFile(small.path(), {.contents = "a"});
        world.files.addFile(film.path(), {.size = 40'000'000});
        world.files.addFolder(disk.path());
        world.files.makeVolume(disk.path());
        store = launch();
        scan(*store);
    }

    void start(std::vector<FileUrl> urls, TransferKind kind = TransferKind::move) {
        store->transfer(std::move(urls), disk, kind);
    }
    /// Has `during` run, on the UI thread, before the n-th piece of a file is copied.
    void atPiece(int n, std::function<void()> during) {
        world.files.onOperation([this, n, during](const FakeOperation& operation) {
            if (operation.kind == FakeOperation::Kind::copyPiece && ++pieces == n) during();
        });
    }
    std::string message() const { return store->toast.get()->message; }

    const FileUrl small{"/home/user/Downloads/small.txt"};
    const FileUrl film{"/home/user/Downloads/film.mp4"};
    const FileUrl disk{"/media/disk"};
    std::shared_ptr<AppStore> store;
    int pieces = 0;
};

TEST_F(LongTransfer, thatIsSoonDoneShowsNoProgress) {
    int changes = 0;
    const auto watch = store->transferProgress.observe([&] { ++changes; });
    start({small, film});
    world.tasks.advance(499ms);
    world.tasks.runEverything();
    world.tasks.advance(60s);
    EXPECT_EQ(changes, 0);
}

TEST_F(LongTransfer, saysAfterAMomentHowManyFilesThereAre) {
    start({small, film});
    world.tasks.advance(500ms);
    EXPECT_EQ(store->transferProgress.get(), (TransferProgress{.filesTotal = 2}));
    EXPECT_EQ(message(), "Moving 2 files…") << "beside the progress";
}

TEST_F(LongTransfer, showsHowFarItIs) {
    std::optional<TransferProgress> shown;
    atPiece(3, [&] {
        world.tasks.advance(500ms);
        shown = store->transferProgress.get();
    });
    start({small, film});
    world.tasks.runEverything();
    EXPECT_EQ(shown, (TransferProgress{1, 2, 1 + 4'194'304, 40'000'001}));
}

TEST_F(LongTransfer, showsNoMoreThanTenStepsASecond) {
    int changes = 0;
    const auto watch = store->transferProgress.observe([&] { ++changes; });
    world.files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind != FakeOperation::Kind::copyPiece) return;
        if (++pieces == 2) world.tasks.advance(500ms);
        if (pieces > 2) world.tasks.advance(20ms);
    });
    start({film});
    world.tasks.runEverything();
    // Once after the moment, once 100 ms later, once to take it away.
    EXPECT_EQ(pieces, 10);
    EXPECT_EQ(changes, 3);
}

TEST_F(LongTransfer, takesItsProgressAwayAtItsEnd) {
    atPiece(1, [&] { world.tasks.advance(1s); });
    start({film});
    world.tasks.runEverything();
    EXPECT_FALSE(store->transferProgress.get());
    world.tasks.advance(60s);
    EXPECT_FALSE(store->transferProgress.get());
    EXPECT_FALSE(store->transferring.get());
}

TEST_F(LongTransfer, showsTheProgressOfTheNextOneFromItsBeginning) {
    start({film});
    world.tasks.runEverything();
    world.files.addFile(film.path(), {.size = 40'000'000});
    start({film});
    world.tasks.advance(500ms);
    EXPECT_EQ(store->transferProgress.get(), (TransferProgress{.filesTotal = 1}));
}

TEST_F(LongTransfer, thatIsCancelledKeepsAndRecordsWhatIsDone) {
    atPiece(3, [&] { store->cancelTransfer(); });
    start({small, film});
    world.tasks.runEverything();
    EXPECT_TRUE(world.files.exists(disk.append("small.txt")));
    EXPECT_TRUE(world.files.exists(film));
    EXPECT_FALSE(world.files.exists(disk.append("film.mp4")));
    ASSERT_EQ(store->activity.get().size(), 1u);
    EXPECT_EQ(store->activity.get().front().title, "Moved 1 file to disk");
    EXPECT_EQ(store->activity.get().front().moves.size(), 1u);
    EXPECT_EQ(message(), "1 file moved to disk");
    EXPECT_EQ(store->toast.get()->entryID, store->activity.get().front().id);
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
    EXPECT_FALSE(store->transferring.get());
}

TEST_F(LongTransfer, thatIsCancelledBeforeAnythingWasDoneBlamesNoFile) {
    atPiece(1, [&] { store->cancelTransfer(); });
    start({film});
    world.tasks.runEverything();
    EXPECT_EQ(message(), "Nothing was moved");
    EXPECT_FALSE(store->toast.get()->entryID);
    EXPECT_TRUE(store->activity.get().empty());
    EXPECT_EQ(store->fileOpsVersion.get(), 1);
    EXPECT_FALSE(store->transferring.get());
    EXPECT_FALSE(store->transferProgress.get());
    world.tasks.advance(8s);
    EXPECT_FALSE(store->toast.get()) << "it passes";
    pieces = 0;
    start({film}, TransferKind::copy);
    world.tasks.runEverything();
    EXPECT_EQ(message(), "Nothing was copied");
}

TEST_F(LongTransfer, canBeCancelledBeforeItHasBegun) {
    start({small, film});
    store->cancelTransfer();
    world.tasks.runEverything();
    EXPECT_EQ(message(), "Nothing was moved");
    EXPECT_TRUE(world.files.exists(small));
}

TEST_F(LongTransfer, canBeBegunAnewAfterOneWasCancelled) {
    start({film});
    store->cancelTransfer();
    world.tasks.runEverything();
    start({film});
    world.tasks.runEverything();
    EXPECT_EQ(message(), "1 file moved to disk");
    EXPECT_TRUE(world.files.exists(disk.append("film.mp4")));
}

TEST_F(LongTransfer, isNotMistakenForOneThatWasCancelledBefore) {
    store->cancelTransfer();
    start({FileUrl("/vanished")});
    store->cancelTransfer();
    world.tasks.runEverything();
    start({FileUrl("/vanished")});
    world.tasks.runEverything();
    EXPECT_EQ(message(), "Couldn’t move that file — a file with that name may be in use");
}

TEST_F(LongTransfer, whoseLastFileWasDoneWhenItWasCancelledIsWhole) {
    start({small});
    const auto work = world.tasks.takeBackgroundTask();
    work();
    store->cancelTransfer();
    world.tasks.runEverything();
    EXPECT_EQ(message(), "1 file moved to disk");
}

TEST_F(LongTransfer, endsInsideAFileOnceTheStoreIsGone) {
    atPiece(2, [&] { store.reset(); });
    start({film});
    const auto work = world.tasks.takeBackgroundTask();
    work();
    world.tasks.runUiTasks();
    EXPECT_EQ(pieces, 2);
    EXPECT_TRUE(world.files.exists(film));
}

}  // namespace
}  // namespace nookwise
