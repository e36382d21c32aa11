import QtQuick
import QtTest
import Nookwise

ScreenTest {
    name: "Trash"

    readonly property string question: "Move 3 downloads to the Trash?"
    readonly property string survey: "old survey.zip, 300 MB, untouched since 6 mo. ago, Downloads"
    readonly property string slides: "old slides.pdf, 200 MB, untouched since 3 mo. ago, Downloads"

    function init() {
        Theme.reducedMotion = true
    }

    function openReview(width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillHome()
        bench.runScan()
        clickNamed("Forgotten downloads, 600 MB, untouched 90+ days")
        tryVerify(() => findText("Files in Downloads you haven’t opened in 90+ days"))
        waitForRendering(window.contentItem)
    }

    function ask() {
        openReview()
        clickNamed("Trash selected (3 · 600 MB)")
        tryVerify(() => findText(question))
    }

    function sheetShown(): bool {
        return findText(question) !== null
    }

    function tickBox(name) {
        return search(window.contentItem, item => item.Accessible.name === name && item.checkState !== undefined)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "Forgotten downloads")
    }

    function focusName(): string {
        return window.activeFocusItem?.Accessible.name ?? ""
    }

    function currentName(): string {
        return list().currentItem.Accessible.name
    }

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

    function test_theSheetIsClosedWithout_data() {
        return [
            { tag: "escape", close: () => keyClick(Qt.Key_Escape) },
            { tag: "cancel", close: () => clickNamed("Cancel") },
            { tag: "scrim", close: () => mouseClick(window.contentItem, 20, 20) },
            { tag: "scrim over a row", close: () => mouseClick(window.contentItem, 300, 600) }
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

    function clickButton(text, from) {
        mouseClick(search(from, item => item.text === text && item.clicked !== undefined))
    }

    function test_homeSaysThatEverythingIsClean() {
        clearEverything()
        keyClick(Qt.Key_1, Qt.ControlModifier)
        tryVerify(() => findText("Everything is clean"))
        named("Scan Again")
        named("Forgotten downloads, nothing, untouched 90+ days")
    }

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

    function test_aLongCallShowsHowFarItIs() {
        openReview()
        bench.setBusy(120, 4812)
        verifyText("120 of 4,812")
        named("Moving files, 120 of 4,812")
        bench.setBusy(0, 0)
        verifyNoText("Moving files")
    }
}
