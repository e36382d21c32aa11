import QtQuick
import QtTest

ScreenTest {
    name: "Transfer"

    function openMoving() {
        openWindow()
        bench.startMoving()
        bench.setMoved(2, 14, 1.2, 3.6)
        tryVerify(() => findText("2 of 14 · 1.2 GB of 3.6 GB"))
        // What has just come takes no press.
        waitForRendering(window.contentItem)
    }

    function card() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.ProgressBar && item.transfer !== undefined)
    }

    function focusName(): string {
        return window.activeFocusItem?.Accessible.name ?? ""
    }

    function clickButton(text, from) {
        mouseClick(search(from, item => item.text === text && item.clicked !== undefined))
    }

    function test_nothingIsThereWhileNothingIsOnItsWay() {
        openWindow()
        verify(!card())
        bench.startMoving()
        verify(!card())
    }

    function test_itStandsAboveTheToastAndSaysHowFarItIs() {
        openMoving()
        const toast = named("Moving 3 files…")
        compare(card().Accessible.name, "2 of 14, 30 per cent")
        tryVerify(() => card().mapToItem(null, 0, card().height).y === toast.mapToItem(null, 0, 0).y - 8)
        compare(Math.round(card().mapToItem(null, card().width / 2, 0).x), 232 + (1200 - 232) / 2)
        bench.setMoved(14, 14, 3.6, 3.6)
        compare(card().Accessible.name, "14 of 14, 100 per cent")
        bench.setMoved(0, 0, 0, 0)
        verify(!card())
    }

    function test_itFitsTheSmallestWindow() {
        openWindow(960, 640)
        bench.startMoving()
        bench.setMoved(1234, 12345, 1234.5, 9876.5)
        verify(card())
        verify(card().mapToItem(null, 0, 0).x > 0)
        verify(rightOf(card()) <= window.width)
        verify(card().mapToItem(null, 0, 0).y > 0)
        const text = findText("1,234 of 12,345 · 1.23 TB of 9.88 TB")
        verify(text)
        verify(!text.truncated)
        verify(rightOf(text) <= named("Cancel").mapToItem(window.contentItem, 0, 0).x)
    }

    function test_itStandsInTheToastsPlaceOnceThatIsClosed() {
        openMoving()
        clickButton("Close", named("Moving 3 files…"))
        tryVerify(() => !findNamed("Moving 3 files…"))
        tryCompare(card().mapToItem(null, 0, card().height), "y", window.height - 24)
    }

    function test_itIsEndedByTheMouse() {
        openMoving()
        clickNamed("Cancel")
        verifyText("Stopping…")
        compare(card().Accessible.name, "Stopping…")
        bench.setMoved(0, 0, 0, 0)
        bench.setMoved(0, 3, 0, 0)
        verifyText("0 of 3")
    }

    function test_itIsEndedByTheKeyboard() {
        openMoving()
        keyClick(Qt.Key_F6)
        if (focusName() !== "Close")
            keyClick(Qt.Key_F6)
        compare(focusName(), "Close")
        keyClick(Qt.Key_Tab)
        compare(focusName(), "Cancel")
        keyClick(Qt.Key_Space)
        verifyText("Stopping…")
    }

    function test_f6ReachesItAlsoWithoutAToast() {
        openMoving()
        clickButton("Close", named("Moving 3 files…"))
        tryVerify(() => !findNamed("Moving 3 files…"))
        for (let i = 0; i < 4 && focusName() !== "Cancel"; ++i)
            keyClick(Qt.Key_F6)
        compare(focusName(), "Cancel")
        keyClick(Qt.Key_F6)
        verify(focusName() !== "Cancel")
    }

    function test_theFocusDoesNotGoWithIt() {
        openMoving()
        for (let i = 0; i < 6 && focusName() !== "Cancel"; ++i)
            keyClick(Qt.Key_F6)
        compare(focusName(), "Cancel")
        bench.setMoved(0, 0, 0, 0)
        verify(window.activeFocusItem)
        verify(window.activeFocusItem.visible)
        verify(focusName() !== "Cancel")
    }

    function test_nothingBeneathIsPressedThroughIt() {
        openMoving()
        const section = bench.section()
        mouseClick(card(), 10, 10)
        compare(bench.section(), section)
        verifyText("2 of 14 · 1.2 GB of 3.6 GB")
    }

    function test_itDoesNotTakeTheSecondPressOfADoubleClick() {
        openWindow()
        bench.startMoving()
        bench.setDoubleClickInterval(100000)
        bench.setMoved(2, 14, 0, 0)
        tryVerify(() => card())
        mouseClick(named("Cancel"))
        verifyText("2 of 14")
    }
}
