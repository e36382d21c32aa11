#include "tests/ui/StoreFixture.h"
#include "ui/window/WindowMemory.h"

#include <QScreen>

namespace nookwise {
namespace {

class Memory : public StoreFixture {
  protected:
    Memory() {
        window.setMinimumSize(QSize(300, 200));
        window.resize(500, 400);
    }

    /// What the next start would find, after `change` happened to the window of this one.
    template <typename Change>
    void during(Change change) {
        const WindowMemory memory(window, sidebar, fake.defaults);
        change();
    }

    PilesModel piles{*store};
    SidebarModel sidebar{*store, piles};
    QQuickWindow window;
};

TEST_F(Memory, leavesANewUsersWindowAsItIs) {
    during([] {});
    EXPECT_EQ(window.size(), QSize(500, 400));
    EXPECT_EQ(store->section.get(), AppSection::home);
    EXPECT_FALSE(fake.defaults.string("window.size").has_value());
}

TEST_F(Memory, bringsBackSizeAndSection) {
    during([this] {
        window.resize(640, 420);
        sidebar.open("sweep");
    });
    window.resize(500, 400);
    sidebar.open("home");
    during([] {});
    EXPECT_EQ(window.size(), QSize(640, 420));
    EXPECT_EQ(store->section.get(), AppSection::sweep);
}

TEST_F(Memory, keepsTheSizeToComeBackToWhileMaximised) {
    during([this] { window.resize(640, 420); });
    during([this] {
        window.setWindowStates(Qt::WindowMaximized);
        window.resize(799, 599);
    });
    EXPECT_EQ(fake.defaults.string("window.size"), "640x420");
    EXPECT_EQ(fake.defaults.boolean("window.maximised"), true);
    window.setWindowStates(Qt::WindowNoState);
    during([this] { EXPECT_TRUE(window.windowStates().testFlag(Qt::WindowMaximized)); });
}

TEST_F(Memory, ignoresSizesThatAreNone) {
    for (const auto* size :
         {"", "x", "640", "640x", "axb", "640x420x1", "-5x-5", "99999999999x1"}) {
        window.resize(500, 400);
        fake.defaults.setString("window.size", size);
        during([] {});
        EXPECT_EQ(window.size(), QSize(500, 400)) << size;
    }
}

TEST_F(Memory, keepsBetweenTheSmallestSizeAndTheScreen) {
    fake.defaults.setString("window.size", "10x10");
    during([] {});
    EXPECT_EQ(window.size(), QSize(300, 200));
    fake.defaults.setString("window.size", "100000x100000");
    during([] {});
    EXPECT_EQ(window.size(), window.screen()->availableSize());
}

TEST_F(Memory, ofAnUnknownSectionStaysHome) {
    fake.defaults.setString("window.section", "attic");
    during([] {});
    EXPECT_EQ(store->section.get(), AppSection::home);
}

}  // namespace
}  // namespace nookwise
