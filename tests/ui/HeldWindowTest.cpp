#include "tests/ui/StoreFixture.h"
#include "ui/window/HeldWindow.h"

#include <QCoreApplication>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace nookwise {
namespace {

/// Counts what reaches the window's content.
class Pressed : public QQuickItem {
  public:
    Pressed() {
        setAcceptedMouseButtons(Qt::LeftButton);
        setFocus(true);
    }

    int presses = 0;
    int releases = 0;
    int keys = 0;

  protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

class Held : public StoreFixture {
  protected:
    void SetUp() override {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        window.resize(100, 100);
        pressed.setParentItem(window.contentItem());
        pressed.setSize({100, 100});
        window.show();
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
    }

    /// What the display has sent meanwhile, delivered now.
    void press() { QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(50, 50)); }

    QQuickWindow window;
    Pressed pressed;
    HeldWindow held{*store, window};
};

TEST_F(Held, isPaintedAtEachStep) {
    QSignalSpy painted(&window, &QQuickWindow::afterRendering);
    store->busy.set(Busy{1, 10});
    EXPECT_EQ(painted.size(), 1);
    store->busy.set(Busy{2, 10});
    EXPECT_EQ(painted.size(), 2);
    store->busy.set(std::nullopt);
    EXPECT_EQ(painted.size(), 2);
}

TEST_F(Held, paintsWhatTheStepChanged) {
    QColor shown;
    QObject::connect(&window, &QQuickWindow::afterRendering, &window,
                     [&] { shown = window.color(); });
    const auto subscription = store->busy.observe([&] { window.setColor(Qt::red); });
    store->busy.set(Busy{1, 10});
    // The observer that came later is too late for this step.
    EXPECT_NE(shown, QColor(Qt::red));
    store->busy.set(Busy{2, 10});
    EXPECT_EQ(shown, QColor(Qt::red));
}

TEST_F(Held, deliversNothingMeanwhile) {
    bool timed = false;
    bool posted = false;
    QTimer::singleShot(0, &window, [&] { timed = true; });
    QMetaObject::invokeMethod(
        &window, [&] { posted = true; }, Qt::QueuedConnection);
    store->busy.set(Busy{1, 10});
    store->busy.set(Busy{2, 10});
    store->busy.set(std::nullopt);
    EXPECT_FALSE(timed);
    EXPECT_FALSE(posted);
    QCoreApplication::processEvents();
    EXPECT_TRUE(timed);
    EXPECT_TRUE(posted);
}

TEST_F(Held, dropsWhatWasPressedMeanwhile) {
    store->busy.set(Busy{1, 10});
    store->busy.set(std::nullopt);
    press();
    EXPECT_EQ(pressed.presses, 0);
}

TEST_F(Held, dropsKeysThatWerePressedMeanwhile) {
    store->busy.set(Busy{1, 10});
    store->busy.set(std::nullopt);
    QTest::keyPress(&window, Qt::Key_A);
    EXPECT_EQ(pressed.keys, 0);
}

TEST_F(Held, waitsForTheInputThatComesWithTheNextTurn) {
    store->busy.set(Busy{1, 10});
    store->busy.set(std::nullopt);
    QCoreApplication::processEvents();
    press();
    EXPECT_EQ(pressed.presses, 0);
}

TEST_F(Held, isHeldOnWhenTheNextCallFollows) {
    store->busy.set(Busy{1, 10});
    store->busy.set(std::nullopt);
    QCoreApplication::processEvents();
    store->busy.set(Busy{1, 10});
    store->busy.set(std::nullopt);
    QCoreApplication::processEvents();
    press();
    EXPECT_EQ(pressed.presses, 0);
}

TEST_F(Held, isPressedAgainAfterwards) {
    store->busy.set(Busy{1, 10});
    store->busy.set(std::nullopt);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    press();
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(50, 50));
    QTest::keyPress(&window, Qt::Key_A);
    EXPECT_EQ(pressed.presses, 1);
    EXPECT_EQ(pressed.releases, 1);
    EXPECT_EQ(pressed.keys, 1);
}

TEST_F(Held, isPressedAsUsualWhenNothingTakesLong) {
    store->busy.set(std::nullopt);
    press();
    EXPECT_EQ(pressed.presses, 1);
}

}  // namespace
}  // namespace nookwise
