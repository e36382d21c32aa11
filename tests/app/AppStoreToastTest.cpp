#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

using namespace std::chrono_literals;

class Toasts : public StoreFixture {
  protected:
    /// Shows a toast by trashing a file.
    void trash(std::string_view path) {
        world.files.addFile(path, {.contents = "bytes"});
        store->requestTrash({sized(path, 5)}, std::nullopt, "Test");
    }

    Toasts() { world.defaults.setBoolean("skipConfirm.Test", true); }

    std::shared_ptr<AppStore> store = launch();
};

TEST_F(Toasts, passAfterEightSeconds) {
    trash("/home/user/a");
    world.tasks.advance(7'999ms);
    EXPECT_TRUE(store->toast.get());
    world.tasks.advance(1ms);
    EXPECT_FALSE(store->toast.get());
}

TEST_F(Toasts, areEachShownForTheirFullTime) {
    trash("/home/user/a");
    const auto first = store->toast.get();
    world.tasks.advance(5s);
    trash("/home/user/b");
    EXPECT_NE(store->toast.get(), first);
    world.tasks.advance(7s);
    EXPECT_TRUE(store->toast.get());
    world.tasks.advance(1s);
    EXPECT_FALSE(store->toast.get());
}

TEST_F(Toasts, ofTheSameTextAreDifferent) {
    trash("/home/user/a");
    const auto first = store->toast.get();
    trash("/home/user/b");
    EXPECT_EQ(store->toast.get()->message, first->message);
    EXPECT_NE(store->toast.get(), first);
}

TEST_F(Toasts, canBeClosed) {
    trash("/home/user/a");
    store->closeToast();
    EXPECT_FALSE(store->toast.get());
    trash("/home/user/b");
    world.tasks.advance(7s);
    EXPECT_TRUE(store->toast.get()) << "a closed toast's timer takes no other toast along";
}

TEST_F(Toasts, giveWayToTheOutcomeOfTheirUndo) {
    trash("/home/user/a");
    std::vector<std::string> shown;
    const auto watch = store->toast.observe(
        [&] { shown.push_back(store->toast.get() ? store->toast.get()->message : "none"); });
    store->undoFromToast();
    EXPECT_EQ(shown, (std::vector<std::string>{"none", "Put back 1 file"}));
    EXPECT_TRUE(world.files.exists(FileUrl("/home/user/a")));
    world.tasks.advance(7'999ms);
    EXPECT_TRUE(store->toast.get());
}

TEST_F(Toasts, doNotOutliveTheStore) {
    trash("/home/user/a");
    const auto delays = world.tasks.pendingDelays();
    store.reset();
    EXPECT_LT(world.tasks.pendingDelays(), delays);
    world.tasks.advance(9s);
}

}  // namespace
}  // namespace nookwise
