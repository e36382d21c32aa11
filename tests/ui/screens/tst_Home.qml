import QtQuick
import QtTest

ScreenTest {
    name: "Home"

    function test_showsTheFirstScan() {
        openWindow()
        bench.report("Desktop", 1126, 0.25, "Reading Desktop")
        bench.report("Documents", 4812, 0.4, "Reading Documents")
        verifyText("Reading your folders… ·")
        verifyText("4,812 files")
        for (const title of ["Desktop", "Documents", "Downloads", "Last opened", "Copies"])
            verifyText(title)
        verifyText("1,126 files")
        verifyText("Reading Documents")
        verifyText("Waiting")
        verifyText("Nothing is moved until you review it.")
        named("Reading Documents, 40 per cent")
        verifyNoText("Review the piles")
        verifyNoText("Just landed")
    }

    function test_pilesCannotBeOpenedDuringTheFirstScan() {
        openWindow()
        clickNamed("Large files, over 500 MB each")
        compare(bench.section(), "home")
    }

    function test_showsWhatCouldComeBack() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        verifyText("1.36 GB could come back")
        verifyText("Five piles are ready to look through. Nothing moves until you say so.")
        named("Forgotten downloads, 600 MB, untouched 90+ days")
        named("Old installers, 50 MB, apps already installed")
        named("Old screenshots, 5 MB, older than a month")
        named("Large files, 700 MB, over 500 MB each")
        named("Duplicates, 100 KB, exact copies")
        verifyText("61.27 GB free")
        verifyText("of 494.38 GB")
        verifyText("Everything else")
        verifyText("checked just now")
        verifyText("Just landed")
        named("plan copy.pdf, Desktop, 1 day ago")
    }

    function test_cardsOpenTheirPiles_data() {
        return [
            { tag: "pile", card: "Large files, 700 MB, over 500 MB each", section: "sweep", shows: "harbour.mov" },
            { tag: "copies", card: "Duplicates, 100 KB, exact copies", section: "duplicates", shows: "plan copy.pdf" }
        ]
    }

    function test_cardsOpenTheirPiles(data) {
        openWindow()
        bench.fillHome()
        bench.runScan()
        clickNamed(data.card)
        compare(bench.section(), data.section)
        tryVerify(() => findText(data.shows))
    }

    function test_reviewsWithTheKeyboard() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        verify(named("Review the piles").activeFocus)
        keyClick(Qt.Key_Return)
        compare(bench.section(), "sweep")
    }

    function test_saysWhenEverythingIsClean() {
        openWindow()
        bench.runScan()
        verifyText("Everything is clean")
        verifyText("No piles in Desktop, Documents and Downloads.")
        verifyText("nothing")
        clickNamed("Scan Again")
        verify(bench.scanning())
    }

    function test_aLaterScanKeepsTheScreen() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        keyClick(Qt.Key_R, Qt.ControlModifier)
        verify(bench.scanning())
        bench.report("Documents", 7, 0.4, "Reading Documents")
        verifyText("1.36 GB could come back")
        verifyText("Reading Documents")
        verifyNoText("Five piles are ready to look through. Nothing moves until you say so.")
        bench.runScan()
        verifyText("Five piles are ready to look through. Nothing moves until you say so.")
    }

    function test_fitsTheSmallestWindow() {
        openWindow(960, 640)
        bench.fillHome()
        bench.runScan()
        waitForRendering(window.contentItem)
        const right = window.width - 28
        for (const text of ["Review the piles", "exact copies", "1 day ago"])
            verify(rightOf(findText(text)) <= right, text)
    }
}
