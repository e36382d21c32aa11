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
        verifyText("Byte-for-byte the same. Click any copy to keep it instead.")
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

    function openGroups(groups, width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillCopies(groups)
        bench.runScan()
        keyClick(Qt.Key_4, Qt.ControlModifier)
        tryVerify(() => findText(groups + " copies in " + groups + " groups"))
        waitForRendering(window.contentItem)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "Duplicates")
    }

    // Trash buttons of groups, from the top.
    function trashButtons() {
        const found = []
        search(window.contentItem, item => {
            if (item.Accessible.name === "Trash 1 extra" && item.Accessible.role === Accessible.Button)
                found.push(item)
            return false
        })
        return found.sort((a, b) => a.mapToItem(null, 0, 0).y - b.mapToItem(null, 0, 0).y)
    }

    function test_aClickKeepsACopy() {
        openReview()
        verify(named("Documents, Fernhill, kept").Accessible.checked)
        verify(!named("Desktop, extra").Accessible.checked)
        clickNamed("Desktop, extra")
        verify(named("Desktop, kept").Accessible.checked)
        verify(!named("Documents, Fernhill, extra").Accessible.checked)
        clickNamed("Desktop, kept")
        named("Desktop, kept")
    }

    function test_thePointerOffersToKeepACopy() {
        openReview()
        verifyNoText("Keep this one")
        mouseMove(named("Desktop, extra"))
        tryVerify(() => findText("Keep this one"))
        mouseMove(named("Documents, Fernhill, kept"))
        tryVerify(() => !findText("Keep this one"))
    }

    function test_spaceAndEnterKeepACopy_data() {
        return [{ tag: "space", key: Qt.Key_Space }, { tag: "return", key: Qt.Key_Return }, { tag: "enter", key: Qt.Key_Enter }]
    }

    function test_spaceAndEnterKeepACopy(data) {
        openReview()
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Right)
        verifyText("Keep this one")
        keyClick(data.key)
        named("Desktop, kept")
        verify(named("Desktop, kept").marked)
        verifyNoText("Keep this one")
    }

    function test_keepingLeavesTheListWhereItIs() {
        openGroups(30)
        list().contentY = 1500
        waitForRendering(window.contentItem)
        const extra = search(list(), item => item.Accessible.name === "Downloads, extra" && item.mapToItem(list(), 0, 0).y > 0)
        // Half of it is in view.
        list().contentY += extra.mapToItem(list(), 0, 0).y + 50
        waitForRendering(window.contentItem)
        const place = list().contentY
        mouseClick(extra, 40, 70)
        tryVerify(() => findNamed("Downloads, kept"))
        compare(list().contentY, place)
        keyClick(Qt.Key_Left)
        keyClick(Qt.Key_Space)
        tryVerify(() => !findNamed("Downloads, kept"))
    }

    function test_trashesTheExtrasOfAGroup() {
        openGroups(3)
        mouseClick(trashButtons()[1])
        compare(bench.askedNames(), ["plan 101.pdf"])
    }

    function test_deleteTrashesTheExtrasOfTheFocusedGroup() {
        openGroups(3)
        list().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Delete)
        compare(bench.askedNames(), ["plan 102.pdf"])
    }

    function test_aDoubleClickTrashesOneGroup() {
        openGroups(3)
        bench.askNoMore()
        bench.setDoubleClickInterval(100000)
        mouseDoubleClickSequence(trashButtons()[0])
        tryVerify(() => findText("2 copies in 2 groups"))
        waitForRendering(window.contentItem)
        mouseClick(trashButtons()[0])
        verifyText("2 copies in 2 groups")
        verify(bench.exists("/home/user/Downloads/plan 101.pdf"))
    }

    function test_deleteThatIsHeldTrashesOneGroup() {
        openGroups(4)
        bench.askNoMore()
        list().forceActiveFocus(Qt.TabFocusReason)
        bench.holdKey(Qt.Key_Delete)
        tryVerify(() => findText("3 copies in 3 groups"))
        waitForRendering(window.contentItem)
        verifyText("3 copies in 3 groups")
    }

    function test_trashesAllExtras() {
        openGroups(3)
        clickNamed("Trash all extras (3 · 300 KB)")
        compare(bench.askedNames(), ["plan 100.pdf", "plan 101.pdf", "plan 102.pdf"])
    }

    function test_afterTrashingTheNextGroupHasTheFocus() {
        openGroups(30)
        bench.askNoMore()
        list().forceActiveFocus(Qt.TabFocusReason)
        for (let i = 0; i < 10; ++i)
            keyClick(Qt.Key_Down)
        verify(named("Documents, 110, kept").marked)
        keyClick(Qt.Key_Delete)
        tryVerify(() => findText("29 copies in 29 groups"))
        verify(list().activeFocus)
        tryVerify(() => findNamed("Documents, 111, kept")?.marked)
        keyClick(Qt.Key_End)
        verify(named("Documents, 129, kept").marked)
        keyClick(Qt.Key_Delete)
        tryVerify(() => findNamed("Documents, 128, kept")?.marked)
    }

    function test_afterTheLastGroupTheTabsHaveTheFocus() {
        openReview()
        bench.askNoMore()
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Delete)
        tryVerify(() => findText("One of everything"))
        tryVerify(() => window.activeFocusItem.Accessible.role === Accessible.PageTab)
    }

    function test_tabReachesEveryGroupOnce() {
        openGroups(3)
        const stops = []
        for (let i = 0; i < 3; ++i) {
            stops.push(window.activeFocusItem.Accessible.name)
            keyClick(Qt.Key_Tab)
        }
        compare(stops, ["Duplicates, 300 KB", "plan 100.pdf", "Trash all extras (3 · 300 KB)"])
    }

    function test_fitsTheSmallestWindow() {
        openGroups(3, 960, 640)
        for (const button of trashButtons())
            verify(rightOf(button) <= window.width - 28)
        verify(rightOf(named("Trash all extras (3 · 300 KB)")) <= window.width - 28)
    }

    function test_arrowsMoveFromCopyToCopy() {
        openReview()
        keyClick(Qt.Key_Tab)
        verify(list().activeFocus)
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
