import QtQuick
import QtTest
import Nookwise

TrashTest {
    name: "Trash"

    function test_keysTickTrashAndUndo() {
        openReview()
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        verifyText("Trash selected (2 · 300 MB)")
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Delete)
        tryVerify(() => findText("Move 2 downloads to the Trash?"))
        keyClick(Qt.Key_Return)
        tryVerify(() => !findText("old slides.pdf"))
        verifyText("old survey.zip")
        verifyText("Trash selected (0)")
        verify(!bench.exists("/home/user/Downloads/old slides.pdf"))
        tryVerify(() => list().activeFocus)
        compare(currentName(), survey)
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        bench.runScan()
        verify(bench.exists("/home/user/Downloads/old slides.pdf"))
        tryVerify(() => findText("old slides.pdf"))
        verifyText("Put back 2 files")
    }

    function test_focusMovesToTheNextRow() {
        openReview()
        bench.fillDownloads(100)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        bench.runScan()
        waitForRendering(window.contentItem)
        keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier)
        list().forceActiveFocus(Qt.TabFocusReason)
        for (let i = 0; i < 20; ++i)
            keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Down)
        const next = currentName()
        keyClick(Qt.Key_Up)
        tryVerify(() => list().contentY > 500)
        waitForRendering(window.contentItem)
        const place = list().contentY
        keyClick(Qt.Key_Delete)
        tryVerify(() => findText("Move 1 file to the Trash?"))
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("0 of 102 ticked"))
        verify(list().activeFocus)
        tryVerify(() => currentName() === next)
        compare(list().currentIndex, 20)
        verify(list().currentItem.ring)
        verify(Math.abs(list().contentY - place) <= list().rowHeight)
    }

    function test_manyRowsGoAtOnceAndTheCurrentOneIsFollowed() {
        openReview()
        bench.fillDownloads(200)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        bench.runScan()
        waitForRendering(window.contentItem)
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_A, Qt.ControlModifier)
        for (let i = 0; i < 150; ++i)
            keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Space)
        const left = currentName()
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("0 of 2 ticked"))
        verify(list().activeFocus)
        tryVerify(() => list().currentItem && currentName() === left)
        compare(list().contentY, 0)
        compare(list().contentHeight, 2 * list().rowHeight)
    }

    function test_theRowsThatStayMoveUp() {
        openReview()
        Theme.reducedMotion = false
        mouseClick(tickBox(slides))
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        tryVerify(() => !findText("old survey.zip") && !findText("old notes.txt"))
        tryVerify(() => list().currentItem.y === 0)
        compare(currentName(), slides)
        compare(list().contentHeight, list().rowHeight)
    }

    function test_theTrashButtonHandsItsFocusToTheList() {
        openReview()
        mouseClick(tickBox(survey))
        named("Trash selected (2 · 300 MB)").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("Move 2 downloads to the Trash?"))
        keyClick(Qt.Key_Return)
        tryVerify(() => list().activeFocus)
        compare(currentName(), survey)
    }

    function test_nothingTickedCannotBeTrashed() {
        openReview()
        clickNamed("Select none")
        verify(!named("Trash selected (0)").enabled)
        mouseClick(named("Trash selected (0)"))
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Delete)
        compare(bench.askedNames(), [])
    }

    function test_deleteWorksAnywhereOnTheScreen() {
        openReview()
        verify(named("Forgotten downloads, 600 MB").activeFocus)
        keyClick(Qt.Key_Delete)
        compare(bench.askedNames().length, 3)
    }

    function test_nothingIsTrashedWhileAScanRuns() {
        openReview()
        keyClick(Qt.Key_R, Qt.ControlModifier)
        verify(bench.scanning())
        verify(!named("Trash selected (0)").enabled)
        keyClick(Qt.Key_Delete)
        compare(bench.askedNames(), [])
    }

    function test_anEmptiedPileLeadsToTheNext() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("Go on with Large files"))
        named("600 MB is back. Next up:")
        named("Large files, 700 MB, 1 file")
        named("Old installers, 50 MB, 1 file")
        named("Old screenshots, 5 MB, 1 file")
        named("Duplicates, 100 KB, 1 copy")
        named("Forgotten downloads, nothing")
        tryVerify(() => focusName() === "Go on with Large files")
        keyClick(Qt.Key_Return)
        tryVerify(() => findText("harbour.mov"))
        compare(bench.section(), "sweep")
    }

    function test_goingOnWithAPileFocusesItsRows() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => focusName() === "Go on with Large files")
        keyClick(Qt.Key_Return)
        tryVerify(() => window.activeFocusItem.ring)
        compare(focusName(), "harbour.mov, 700 MB, opened 1 wk. ago, Documents")
    }

    function test_anEmptiedPileThatIsBackFocusesItsRows() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => focusName() === "Go on with Large files")
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        bench.runScan()
        tryVerify(() => findText("old survey.zip"))
        tryVerify(() => list().activeFocus)
        verify(list().currentItem.ring)
        keyClick(Qt.Key_Return)
        verifyText("old survey.zip")
    }

    function test_theSecondPressOfADoubleClickOpensNoCard() {
        ask()
        bench.setDoubleClickInterval(100000)
        clickNamed("Move to Trash")
        tryVerify(() => findNamed("Duplicates, 100 KB, 1 copy"))
        clickNamed("Duplicates, 100 KB, 1 copy")
        compare(bench.section(), "sweep")
        verifyText("Go on with Large files")
    }

    function test_aCardOpensItsPile() {
        ask()
        keyClick(Qt.Key_Return)
        tryVerify(() => findNamed("Duplicates, 100 KB, 1 copy"))
        clickNamed("Duplicates, 100 KB, 1 copy")
        compare(bench.section(), "duplicates")
    }

    function clearEverything() {
        openWindow()
        bench.fillDownloads(3)
        bench.runScan()
        clickNamed("Forgotten downloads, 3 MB, untouched 90+ days")
        tryVerify(() => findText("3 of 3 ticked"))
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        tryVerify(() => findNamed("3 MB is back. Everything is clean."))
    }

    function test_theLastPileLeadsHomeOrToTheActivity_data() {
        return [{ tag: "Home", section: "home" }, { tag: "Activity", section: "activity" }]
    }

    function test_theLastPileLeadsHomeOrToTheActivity(data) {
        clearEverything()
        tryVerify(() => focusName() === "Home")
        mouseClick(search(window.contentItem, item => item.text === data.tag && item.leadsOn !== undefined))
        compare(bench.section(), data.section)
    }

    function test_homeSaysThatEverythingIsClean() {
        clearEverything()
        keyClick(Qt.Key_1, Qt.ControlModifier)
        tryVerify(() => findText("Everything is clean"))
        named("Scan Again")
        named("Forgotten downloads, nothing, untouched 90+ days")
    }

    function test_aLongCallShowsHowFarItIs() {
        openReview()
        bench.setBusy(120, 4812)
        verifyText("120 of 4,812")
        named("Working on your files, 120 of 4,812")
        bench.setBusy(0, 0)
        verifyNoText("Working on your files")
    }
}
