import QtQuick
import QtTest

ScreenTest {
    name: "Sweep"

    readonly property string survey: "old survey.zip, 300 MB, untouched since 6 mo. ago, Downloads"
    readonly property string slides: "old slides.pdf, 200 MB, untouched since 3 mo. ago, Downloads"

    function openReview(width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillHome()
        bench.runScan()
        clickNamed("Forgotten downloads, 600 MB, untouched 90+ days")
        tryVerify(() => findText("Files in Downloads you haven’t opened in 90+ days"))
        waitForRendering(window.contentItem)
    }

    function tickBox(name) {
        return search(window.contentItem, item => item.Accessible.name === name && item.checkState !== undefined)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "Forgotten downloads")
    }

    function test_showsThePile() {
        openReview()
        verifyText("Files in Downloads you haven’t opened in 90+ days")
        verifyText("600 MB")
        verifyText("3 files")
        verifyText("3 of 3 ticked")
        verifyText("Everything goes to the Trash first. iCloud-only files are skipped.")
        verifyText("old survey.zip")
        verifyText("untouched since 6 mo. ago")
        verifyText("~/Downloads/Reading")
        verifyText("300 MB")
        verifyText("600 MB comes back")
        named("old survey 300 MB, old slides 200 MB, old notes 100 MB")
    }

    function test_ticksByMouse() {
        openReview()
        mouseClick(tickBox(slides))
        compare(bench.tickedNames(), ["old survey.zip", "old notes.txt"])
        compare(tickBox(slides).checkState, Qt.Unchecked)
        verifyText("2 of 3 ticked")
        verifyText("400 MB comes back")
        verifyText("1 file stays where it is")
        named("Select all, 2 of 3")
        mouseClick(tickBox(slides))
        verifyText("3 of 3 ticked")
    }

    function test_ticksWithSpace() {
        openReview()
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        compare(bench.tickedNames(), ["old slides.pdf", "old notes.txt"])
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Space)
        compare(bench.tickedNames(), ["old notes.txt"])
        verifyText("100 MB comes back")
        keyClick(Qt.Key_End)
        keyClick(Qt.Key_Space)
        verifyText("Nothing ticked")
        verifyText("3 files stay where they are")
        keyClick(Qt.Key_Home)
        keyClick(Qt.Key_Space)
        compare(bench.tickedNames(), ["old survey.zip"])
    }

    function test_tabReachesEveryGroupOnce() {
        openReview()
        const stops = []
        for (let i = 0; i < 4; ++i) {
            stops.push(window.activeFocusItem.Accessible.name)
            keyClick(Qt.Key_Tab)
        }
        compare(stops, ["Forgotten downloads, 600 MB", "Select all, 3 of 3", "Select none", survey])
    }

    function test_ticksAllAndNone_data() {
        return [
            { tag: "buttons", all: () => clickNamed("Select all"), none: () => clickNamed("Select none") },
            { tag: "keys", all: () => keyClick(Qt.Key_A, Qt.ControlModifier), none: () => keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier) },
            { tag: "keys in the list", all: () => keyClick(Qt.Key_A, Qt.ControlModifier), none: () => {
                    list().forceActiveFocus(Qt.TabFocusReason)
                    keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier)
                } },
            { tag: "box", all: () => mouseClick(tickBox("Select all, 0 of 3")), none: () => mouseClick(tickBox("Select all, 3 of 3")) }
        ]
    }

    function test_ticksAllAndNone(data) {
        openReview()
        data.none()
        verifyText("0 of 3 ticked")
        verifyText("Nothing ticked")
        compare(tickBox("Select all, 0 of 3").checkState, Qt.Unchecked)
        compare(bench.tickedNames(), [])
        data.all()
        verifyText("3 of 3 ticked")
        verifyText("600 MB comes back")
        compare(tickBox("Select all, 3 of 3").checkState, Qt.Checked)
    }

    function test_theMixedBoxTicksAll() {
        openReview()
        mouseClick(tickBox(survey))
        compare(tickBox("Select all, 2 of 3").checkState, Qt.PartiallyChecked)
        mouseClick(tickBox("Select all, 2 of 3"))
        verifyText("3 of 3 ticked")
    }

    function test_tabsChangeThePile() {
        openReview()
        clickNamed("Large files, 700 MB")
        verifyText("harbour.mov")
        verifyText("0 of 1 ticked")
        verifyNoText("old survey.zip")
        clickNamed("Duplicates, 100 KB")
        compare(bench.section(), "duplicates")
    }

    function test_arrowsMoveAlongTheTabs() {
        openReview()
        verify(named("Forgotten downloads, 600 MB").activeFocus)
        keyClick(Qt.Key_Right)
        verify(named("Old installers, 50 MB").activeFocus)
        keyClick(Qt.Key_Return)
        verifyText("Blue Kite is installed")
        keyClick(Qt.Key_Left)
        keyClick(Qt.Key_Space)
        verifyText("old survey.zip")
    }

    function test_thePileUnderReviewKeepsItsTicksAndItsPlace() {
        openReview()
        mouseClick(tickBox(slides))
        keyClick(Qt.Key_1, Qt.ControlModifier)
        keyClick(Qt.Key_3, Qt.ControlModifier)
        tryVerify(() => findText("2 of 3 ticked"))
    }

    function test_aBlockOfTheStripLeadsToItsRow() {
        openReview()
        bench.fillDownloads(200)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        bench.runScan()
        waitForRendering(window.contentItem)
        keyClick(Qt.Key_End)
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_End)
        tryVerify(() => !findText("old slides.pdf"))
        mouseClick(findText("old slides"))
        tryVerify(() => findText("old slides.pdf"))
        keyClick(Qt.Key_Space)
        verify(!bench.tickedNames().includes("old slides.pdf"))
    }

    function test_pageKeysMoveByPages() {
        openReview()
        bench.fillDownloads(200)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        bench.runScan()
        waitForRendering(window.contentItem)
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_PageDown)
        const page = list().currentIndex
        verify(page >= 4, page)
        keyClick(Qt.Key_PageUp)
        compare(list().currentIndex, 0)
        keyClick(Qt.Key_PageUp)
        compare(list().currentIndex, 0)
        keyClick(Qt.Key_End)
        compare(list().currentIndex, list().count - 1)
    }

    function test_aTickLeavesTheListWhereItIs() {
        openReview()
        bench.fillDownloads(200)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        bench.runScan()
        waitForRendering(window.contentItem)
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_End)
        const place = list().contentY
        verify(place > 1000)
        keyClick(Qt.Key_Space)
        compare(list().contentY, place)
        verifyText("202 of 203 ticked")
    }

    function test_eachPileIsLeftWhereItWas() {
        openReview()
        bench.fillDownloads(200)
        keyClick(Qt.Key_R, Qt.ControlModifier)
        bench.runScan()
        waitForRendering(window.contentItem)
        list().contentY = 2000
        clickNamed("Large files, 700 MB")
        verifyText("harbour.mov")
        clickNamed("Forgotten downloads, 800 MB")
        tryVerify(() => list().contentY === 2000)
    }

    function test_showsTheScan() {
        openWindow()
        keyClick(Qt.Key_3, Qt.ControlModifier)
        bench.report("", 11904, 0.8, "Checking when files were last opened")
        tryVerify(() => findText("Checking when files were last opened"))
        verifyText("11,904 files")
        verifyText("Nothing is moved until you review it.")
        verifyText("Still reading")
        verifyText("Everything goes to the Trash first. iCloud-only files are skipped.")
        verifyNoText("Select all")
        named("Checking when files were last opened, 80 per cent")
    }

    function test_anEmptyPileLeadsOn() {
        openWindow()
        bench.fillDownloads(3)
        bench.runScan()
        keyClick(Qt.Key_3, Qt.ControlModifier)
        tryVerify(() => findNamed("Old installers, nothing"))
        clickNamed("Old installers, nothing")
        verifyText("No installers to clean right now. We’ll check again next time you open Nookwise.")
        named("Scan Again")
        clickNamed("Look at Forgotten downloads · 3 MB")
        verifyText("3 of 3 ticked")
    }

    function test_leadsNowhereWhenEverythingIsClean() {
        openWindow()
        bench.runScan()
        keyClick(Qt.Key_3, Qt.ControlModifier)
        tryVerify(() => findText("No installers to clean right now. We’ll check again next time you open Nookwise."))
        verify(!search(window.contentItem, item => typeof item.text === "string" && item.text.startsWith("Look at")))
        clickNamed("Scan Again")
        verify(bench.scanning())
    }

    function test_fitsTheSmallestWindow() {
        openReview(960, 640)
        verify(rightOf(named("Duplicates, 100 KB")) <= window.width - 112)
        verify(rightOf(findText("300 MB")) <= window.width - 28)
        verifyText("Everything goes to the Trash first. iCloud-only files are skipped.")
        verifyText("600 MB comes back")
    }
}
