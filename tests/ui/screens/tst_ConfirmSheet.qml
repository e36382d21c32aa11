import QtQuick
import QtTest

TrashTest {
    name: "ConfirmSheet"

    function test_theSheetAsksBeforeAnythingMoves() {
        ask()
        verifyText(question)
        verifyText("600 MB goes back to your Mac. Nothing is erased — you can put them back from the Trash, or press ⌘Z right after.")
        named("Don’t ask again for downloads")
        verify(!named("Don’t ask again for downloads").checked)
        compare(focusName(), "Move to Trash")
        verify(named("Move to Trash").visualFocus)
        verify(bench.exists("/home/user/Downloads/old survey.zip"))
    }

    function test_theSheetStandsAQuarterFromTheTop_data() {
        return [{ tag: "usual", width: 1200, height: 760 }, { tag: "smallest", width: 960, height: 640 }]
    }

    function test_theSheetStandsAQuarterFromTheTop(data) {
        openReview(data.width, data.height)
        clickNamed("Trash selected (3 · 600 MB)")
        tryVerify(() => findText(question))
        const box = named("Don’t ask again for downloads")
        const middle = box.mapToItem(null, box.width / 2, 0).x
        compare(Math.round(middle), data.width / 2)
        const title = findText(question)
        compare(title.mapToItem(null, 0, 0).y, data.height / 4 + 28)
    }

    // The sheet takes such presses when it has been there for the time of a double click.
    function pressOutside(x, y) {
        tryVerify(() => {
            mouseClick(window.contentItem, x, y)
            return !sheetShown()
        })
    }

    function test_aDoubleClickOpensTheSheetAndLeavesItOpen() {
        openReview()
        bench.setDoubleClickInterval(100000)
        mouseDoubleClickSequence(named("Trash selected (3 · 600 MB)"))
        tryVerify(() => sheetShown())
        mouseClick(window.contentItem, 20, 20)
        verify(sheetShown())
        compare(bench.askedNames().length, 3)
    }

    function test_aHeldKeyOpensTheSheetAndLeavesItOpen_data() {
        return [{ tag: "return", key: Qt.Key_Return }, { tag: "enter", key: Qt.Key_Enter }, { tag: "space", key: Qt.Key_Space }]
    }

    function test_aHeldKeyOpensTheSheetAndLeavesItOpen(data) {
        openReview()
        named("Trash selected (3 · 600 MB)").forceActiveFocus(Qt.TabFocusReason)
        bench.holdKey(data.key)
        tryVerify(() => sheetShown())
        compare(bench.askedNames().length, 3)
        verify(bench.exists("/home/user/Downloads/old survey.zip"))
    }

    function test_enterThatIsHeldOnTheSwitchConfirmsNothing() {
        openReview()
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Delete)
        tryVerify(() => sheetShown())
        keyClick(Qt.Key_Tab)
        bench.repeatKey(Qt.Key_Return)
        verify(sheetShown())
        verify(bench.exists("/home/user/Downloads/old survey.zip"))
    }

    function test_theSheetShowsItsFocusEveryTime() {
        ask()
        for (let i = 0; i < 2; ++i) {
            compare(focusName(), "Move to Trash")
            verify(named("Move to Trash").visualFocus)
            keyClick(Qt.Key_Escape)
            tryVerify(() => !sheetShown())
            clickNamed("Trash selected (3 · 600 MB)")
            tryVerify(() => sheetShown())
        }
    }

    function test_theRingReturnsToWhereItWas_data() {
        return [{ tag: "keyboard", reason: Qt.TabFocusReason, ring: true }, { tag: "mouse", reason: Qt.MouseFocusReason, ring: false }]
    }

    function test_theRingReturnsToWhereItWas(data) {
        openReview()
        const button = named("Trash selected (3 · 600 MB)")
        button.forceActiveFocus(data.reason)
        keyClick(Qt.Key_Return)
        tryVerify(() => sheetShown())
        keyClick(Qt.Key_Escape)
        tryVerify(() => button.activeFocus)
        compare(button.visualFocus, data.ring)
    }

    function test_theSheetIsClosedWithout_data() {
        return [
            { tag: "escape", close: () => keyClick(Qt.Key_Escape) },
            { tag: "cancel", close: () => clickNamed("Cancel") },
            { tag: "scrim", close: () => pressOutside(20, 20) },
            { tag: "scrim over a row", close: () => pressOutside(300, 600) }
        ]
    }

    function test_theSheetIsClosedWithout(data) {
        ask()
        data.close()
        tryVerify(() => !sheetShown())
        compare(bench.askedNames(), [])
        compare(bench.tickedNames().length, 3)
        verify(bench.exists("/home/user/Downloads/old survey.zip"))
        compare(bench.section(), "sweep")
    }

    function test_focusReturnsToWhereItWas() {
        openReview()
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Delete)
        tryVerify(() => sheetShown())
        keyClick(Qt.Key_Escape)
        tryVerify(() => !sheetShown())
        verify(list().activeFocus)
        compare(currentName(), slides)
    }

    function test_tabStaysInTheSheet() {
        ask()
        const stops = []
        for (let i = 0; i < 4; ++i) {
            stops.push(focusName())
            keyClick(Qt.Key_Tab)
        }
        compare(stops, ["Move to Trash", "Don’t ask again for downloads", "Cancel", "Move to Trash"])
        keyClick(Qt.Key_Backtab)
        keyClick(Qt.Key_Backtab)
        compare(focusName(), "Cancel")
    }

    function test_nothingBehindTheSheetIsReached() {
        ask()
        keyClick(Qt.Key_1, Qt.ControlModifier)
        compare(bench.section(), "sweep")
        keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier)
        compare(bench.tickedNames().length, 3)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        verify(!bench.scanning())
        keyClick(Qt.Key_F6)
        compare(focusName(), "Move to Trash")
        keyClick(Qt.Key_Delete)
        verify(sheetShown())
        const row = list().mapToItem(null, 0, 0)
        mouseMove(window.contentItem, row.x + 300, row.y + 30)
        mouseWheel(window.contentItem, row.x + 300, row.y + 200, 0, -120)
        compare(list().hoveredRow, -1)
        compare(list().contentY, 0)
    }

    function test_enterConfirms_data() {
        return [{ tag: "on the button", tabs: 0 }, { tag: "on the switch", tabs: 1 }]
    }

    function test_enterConfirms(data) {
        ask()
        for (let i = 0; i < data.tabs; ++i)
            keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Return)
        tryVerify(() => !sheetShown())
        verify(!bench.exists("/home/user/Downloads/old survey.zip"))
    }

    function test_enterOnCancelCancels() {
        ask()
        keyClick(Qt.Key_Backtab)
        keyClick(Qt.Key_Return)
        tryVerify(() => !sheetShown())
        verify(bench.exists("/home/user/Downloads/old survey.zip"))
    }

    function test_theSwitchEndsTheQuestions() {
        openReview()
        clickNamed("Select none")
        mouseClick(tickBox(survey))
        clickNamed("Trash selected (1 · 300 MB)")
        tryVerify(() => findText("Move 1 file to the Trash?"))
        clickNamed("Don’t ask again for downloads")
        clickNamed("Move to Trash")
        tryVerify(() => !findText("old survey.zip"))
        mouseClick(tickBox(slides))
        clickNamed("Trash selected (1 · 200 MB)")
        tryVerify(() => !findText("old slides.pdf"))
        compare(bench.askedNames(), [])
        verify(!bench.exists("/home/user/Downloads/old slides.pdf"))
    }

    function test_ctrlZWaitsForTheSheet() {
        openReview()
        mouseClick(tickBox(survey))
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("2 files moved to Trash · 300 MB freed"))
        mouseClick(tickBox(survey))
        keyClick(Qt.Key_Delete)
        tryVerify(() => findText("Move 1 file to the Trash?"))
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        verify(!bench.exists("/home/user/Downloads/old slides.pdf"))
        verifyText("Move 1 file to the Trash?")
    }
}
