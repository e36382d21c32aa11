import QtQuick
import QtTest

ScreenTest {
    name: "Duplicates"

    function openReview() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        keyClick(Qt.Key_4, Qt.ControlModifier)
        tryVerify(() => findText("1 copy in 1 group"))
    }

    function test_showsTheGroups() {
        openReview()
        verifyText("Exact copies of files you already have")
        verifyText("2 copies, 100 KB each")
        verifyText("~/Documents/Fernhill")
        verifyText("~/Desktop")
        verifyText("plan copy.pdf")
        verifyText("Kept")
        verifyText("Extra")
        named("Documents, Fernhill, kept")
        named("Desktop, extra")
        verifyText("100 KB comes back")
        verifyText("One copy of every file stays where it is")
    }

    function test_offersNothingThatDoesNotWorkYet() {
        openReview()
        verifyNoText("Keep this one")
        verify(!search(window.contentItem, item => typeof item.text === "string" && item.text.startsWith("Trash")))
    }

    function test_arrowsMoveFromCopyToCopy() {
        openReview()
        const list = search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "Duplicates")
        keyClick(Qt.Key_Tab)
        verify(list.activeFocus)
        verify(named("Documents, Fernhill, kept").marked)
        keyClick(Qt.Key_Right)
        verify(named("Desktop, extra").marked)
        verify(!named("Documents, Fernhill, kept").marked)
        for (const key of [Qt.Key_Right, Qt.Key_Down, Qt.Key_End, Qt.Key_PageDown])
            keyClick(key)
        verify(named("Desktop, extra").marked)
        for (const key of [Qt.Key_Left, Qt.Key_Left, Qt.Key_Up, Qt.Key_Home, Qt.Key_PageUp])
            keyClick(key)
        verify(named("Documents, Fernhill, kept").marked)
    }

    function test_showsTheScan() {
        openWindow()
        keyClick(Qt.Key_4, Qt.ControlModifier)
        bench.report("", 12460, 0.88, "Looking for copies")
        tryVerify(() => findText("Looking for copies…"))
        verifyText("12,460 files")
        verifyText("Nothing is moved until you review it.")
    }

    function test_saysWhenThereAreNone() {
        openWindow()
        bench.runScan()
        keyClick(Qt.Key_4, Qt.ControlModifier)
        tryVerify(() => findText("One of everything"))
        verifyText("No copies across Desktop, Documents and Downloads.")
        verifyNoText("One copy of every file stays where it is")
    }

    function test_tabsLeadToThePiles() {
        openReview()
        clickNamed("Large files, 700 MB")
        compare(bench.section(), "sweep")
        tryVerify(() => findText("harbour.mov"))
    }
}
