import QtQuick
import QtTest

TrashTest {
    name: "Toast"

    function test_theToastTellsAndIsClosed() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("3 files moved to Trash · 600 MB freed"))
        named("Undo")
        clickNamed("Show in Trash")
        compare(bench.timesRevealed(), 1)
        const toast = named("3 files moved to Trash · 600 MB freed")
        clickButton("Close", toast)
        tryVerify(() => !findText("3 files moved to Trash · 600 MB freed"))
        verify(!bench.exists("/home/user/Downloads/old survey.zip"))
    }

    function test_theToastUndoes() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("Go on with Large files"))
        clickNamed("Undo")
        bench.runScan()
        verify(bench.exists("/home/user/Downloads/old survey.zip"))
        tryVerify(() => findText("old survey.zip"))
        verifyText("Put back 3 files")
        verify(!findNamed("Undo"))
        verify(!findNamed("Show in Trash"))
    }

    function test_theSecondPressOfADoubleClickClosesNoToast() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("Go on with Large files"))
        bench.setDoubleClickInterval(100000)
        clickNamed("Undo")
        bench.runScan()
        tryVerify(() => findText("Put back 3 files"))
        clickButton("Close", named("Put back 3 files"))
        waitForRendering(window.contentItem)
        verifyText("Put back 3 files")
    }

    function test_theToastNeverTakesTheFocusButF6ReachesIt() {
        openReview()
        mouseClick(tickBox(survey))
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("2 files moved to Trash · 300 MB freed"))
        verify(list().activeFocus)
        keyClick(Qt.Key_F6)
        compare(focusName(), "Undo")
        keyClick(Qt.Key_Tab)
        compare(focusName(), "Show in Trash")
        keyClick(Qt.Key_F6)
        compare(focusName(), "Sweep, 1.06 GB")
        keyClick(Qt.Key_F6)
        keyClick(Qt.Key_F6)
        compare(focusName(), "Undo")
        keyClick(Qt.Key_Escape)
        tryVerify(() => !findNamed("Undo"))
        verify(window.activeFocusItem.Accessible.role === Accessible.PageTab)
    }

    function test_f6ReachesTheActionBar() {
        openReview()
        keyClick(Qt.Key_F6)
        compare(focusName(), "Trash selected (3 · 600 MB)")
        keyClick(Qt.Key_F6)
        compare(focusName(), "Sweep, 1.36 GB")
    }

    function test_theToastStandsAboveTheActionBar() {
        openReview()
        mouseClick(tickBox(survey))
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        const message = "2 files moved to Trash · 300 MB freed"
        tryVerify(() => findText(message))
        const toast = named(message)
        compare(toast.height, 52)
        compare(toast.mapToItem(null, 0, toast.height).y, window.height - 80 - 24)
        compare(Math.round(toast.mapToItem(null, toast.width / 2, 0).x), 232 + (1200 - 232) / 2)
        keyClick(Qt.Key_1, Qt.ControlModifier)
        tryVerify(() => toast.mapToItem(null, 0, toast.height).y === window.height - 24)
    }

    function test_theToastOfFilesOnTheirWayIsClosedOnly() {
        openWindow()
        bench.startMoving()
        tryVerify(() => findText("Moving 3 files…"))
        const toast = named("Moving 3 files…")
        waitForRendering(window.contentItem)
        verify(!findNamed("Undo"))
        verify(!findNamed("Show in Trash"))
        clickButton("Close", toast)
        tryVerify(() => !findText("Moving 3 files…"))
    }

    function test_ctrlZLeavesTextBeingTypedAlone() {
        openReview()
        mouseClick(tickBox(survey))
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("2 files moved to Trash · 300 MB freed"))
        const field = Qt.createQmlObject("import QtQuick; TextInput {}", window.contentItem)
        field.forceActiveFocus()
        keyClick(Qt.Key_X)
        compare(field.text, "x")
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(field.text, "")
        verify(!bench.exists("/home/user/Downloads/old slides.pdf"))
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        verify(!bench.exists("/home/user/Downloads/old slides.pdf"))
        field.destroy()
    }
}
