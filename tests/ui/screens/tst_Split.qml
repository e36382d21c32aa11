import QtQuick
import QtTest
import Nookwise

SplitTest {
    name: "Split"

    readonly property string moveTip: "Move selected to the other side  ⇧⌘M"
    readonly property string copyTip: "Copy selected to the other side  ⌥⇧⌘M"

    function shownNamed(name) {
        const found = []
        search(window.contentItem, item => {
            if (item.Accessible.name === name && !item.Accessible.ignored)
                found.push(item)
            return false
        })
        return found
    }

    function test_showsDownloadsAndDocumentsSideBySide() {
        openSplit()
        compare(bench.section(), "split")
        verifyText("Split view")
        verifyText("Two folders side by side. Drag files across to move them, hold ⌥ to copy.")
        verifyText("~/Downloads")
        verifyText("~/Documents")
        verifyText("4 items")
        verifyText("2 items")
        verifyText("Active side")
        compare(pane("Left").Accessible.name, "Left side, Downloads, active")
        compare(pane("Right").Accessible.name, "Right side, Documents")
        compare(rowNames("Left"), ["Fernhill", "Invoice 2207.pdf", "lighting.json", "workshop.zip"])
        verify(hasFocus("Left"))
    }

    function test_rowsSayWhatTheyAre() {
        openSplit()
        const item = row("Left", "lighting.json")
        compare(item.Accessible.name, "lighting.json, 3 MB, 2 days ago")
        compare(item.Accessible.description, "3 of 4")
        compare(item.Accessible.role, Accessible.ListItem)
        verify(item.Accessible.selectable)
        verify(!item.Accessible.selected)
        clickRow("Left", "lighting.json")
        verify(item.Accessible.selected)
    }

    function test_saysWhatIsSelectedAndWhereItGoes() {
        openSplit()
        verifyText("Nothing selected in Downloads")
        verify(!named("Move to other side").enabled)
        clickRow("Left", "Invoice 2207.pdf")
        clickRow("Left", "lighting.json", Qt.ControlModifier)
        verifyText("4 items · 2 selected · 5 MB")
        verifyText("2 selected in Downloads")
        verifyText("5 MB, goes to ~/Documents")
        verify(named("Move to other side").enabled)
        bench.startMoving()
        verify(!named("Move to other side").enabled)
        verify(!named("Move selected to the other side").enabled)
        verify(!named("Copy selected to the other side").enabled)
    }

    function test_movesToTheOtherSide() {
        openSplit()
        clickRow("Left", "lighting.json")
        clickNamed("Move to other side")
        settle()
        verify(bench.exists("/home/user/Documents/lighting.json"))
        verify(!bench.exists("/home/user/Downloads/lighting.json"))
        verify(rowIn("Right", "lighting.json"))
        verify(!rowIn("Left", "lighting.json"))
    }

    function test_aRowIsChosenByAScreenReaderToo() {
        openSplit()
        keyClick(Qt.Key_A, Qt.ControlModifier)
        compare(selectedNames("Left").length, 4)
        row("Left", "lighting.json").Accessible.pressAction()
        compare(selectedNames("Left"), ["lighting.json"])
    }

    function test_copiesAndSwapsByTheGutter() {
        openSplit()
        clickRow("Right", "Seed list.rtf")
        verify(isActive("Right"))
        clickNamed("Copy selected to the other side")
        settle()
        verify(bench.exists("/home/user/Documents/Seed list.rtf"))
        verify(rowIn("Left", "Seed list.rtf"))
        clickNamed("Swap sides")
        settle()
        compare(pane("Left").Accessible.name, "Left side, Documents")
        compare(pane("Right").Accessible.name, "Right side, Downloads, active")
    }

    function test_theArrowPointsAwayFromTheActiveSide() {
        openSplit()
        compare(named("Move selected to the other side").glyph, "move")
        clickRow("Right", "Seed list.rtf")
        compare(named("Move selected to the other side").glyph, "move-left")
        compare(named("Move to other side").glyph, "move-left")
        clickNamed("Move selected to the other side")
        settle()
        verify(bench.exists("/home/user/Downloads/Seed list.rtf"))
    }

    function test_explainsItsButtons() {
        openSplit()
        compare(named("Move selected to the other side").text, moveTip)
        compare(named("Copy selected to the other side").text, copyTip)
        compare(named("Swap sides").text, "Swap sides")
        named("Swap sides").forceActiveFocus(Qt.TabFocusReason)
        tryVerify(() => findText("Swap sides"))
    }

    function test_selectsByClicks() {
        openSplit()
        clickRow("Left", "Invoice 2207.pdf")
        compare(selectedNames("Left"), ["Invoice 2207.pdf"])
        compare(ringName("Left"), "")
        clickRow("Left", "workshop.zip", Qt.ShiftModifier)
        compare(selectedNames("Left"), ["Invoice 2207.pdf", "lighting.json", "workshop.zip"])
        clickRow("Left", "lighting.json", Qt.ControlModifier)
        compare(selectedNames("Left"), ["Invoice 2207.pdf", "workshop.zip"])
        mouseClick(pane("Left"), 200, 400)
        compare(selectedNames("Left"), [])
    }

    function test_keepsOneSelectionASide() {
        openSplit()
        clickRow("Left", "lighting.json")
        clickRow("Right", "Seed list.rtf")
        compare(selectedNames("Left"), ["lighting.json"])
        compare(selectedNames("Right"), ["Seed list.rtf"])
        verifyText("1 selected in Documents")
    }

    function test_opensFoldersAndFilesByDoubleClick() {
        openSplit()
        doubleClickRow("Left", "Fernhill")
        verifyText("~/Downloads/Fernhill")
        compare(rowNames("Left"), ["plan.pdf"])
        doubleClickRow("Left", "plan.pdf")
        compare(bench.openedNames(), ["plan.pdf"])
    }

    function test_goesUpButNotAboveHome() {
        openSplit()
        const up = named("Up one folder")
        compare(up.mapToItem(window.contentItem, 0, 0).x < 600, true)
        mouseClick(up)
        settle()
        verifyText("~")
        compare(selectedNames("Left"), ["Downloads"])
        const ups = shownNamed("Up one folder")
        compare(ups.length, 1)
        verify(ups[0].mapToItem(window.contentItem, 0, 0).x > 600)
    }

    function test_saysWhenAFolderIsEmpty() {
        openSplit()
        bench.removeFile("/home/user/Documents/Glazes/celadon.txt")
        doubleClickRow("Right", "Glazes")
        verifyText("Nothing in this folder")
        verifyText("0 items")
    }

    function test_readsTheFoldersAgainWhenItComesIntoSight() {
        openSplit()
        keyClick(Qt.Key_1, Qt.ControlModifier)
        bench.makeFile("/home/user/Downloads/fresh.zip")
        keyClick(Qt.Key_Backslash, Qt.ControlModifier)
        settle()
        verify(rowIn("Left", "fresh.zip"))
    }

    function test_keepsItsFoldersWhileItIsOutOfSight() {
        openSplit()
        doubleClickRow("Left", "Fernhill")
        keyClick(Qt.Key_1, Qt.ControlModifier)
        keyClick(Qt.Key_Backslash, Qt.ControlModifier)
        settle()
        verifyText("~/Downloads/Fernhill")
    }

    function test_staysWhereItWasScrolledToWhenFilesGo() {
        openSplit()
        bench.fillFolder("/home/user/Downloads/Fernhill", 200)
        doubleClickRow("Left", "Fernhill")
        keyClick(Qt.Key_End)
        waitForRendering(window.contentItem)
        clickRow("Left", "page 1192.txt")
        const place = row("Left", "page 1192.txt").mapToItem(null, 0, 0).y
        bench.removeFile("/home/user/Downloads/Fernhill/page 1005.txt")
        bench.removeFile("/home/user/Downloads/Fernhill/page 1195.txt")
        clickNamed("Copy selected to the other side")
        settle()
        compare(selectedNames("Left"), ["page 1192.txt"])
        // The list has become shorter by two rows.
        verify(Math.abs(row("Left", "page 1192.txt").mapToItem(null, 0, 0).y - place) <= 80)
    }

    function test_offersTheMenuOfFiles() {
        openSplit()
        clickRow("Left", "lighting.json", Qt.NoModifier, Qt.RightButton)
        compare(selectedNames("Left"), ["lighting.json"])
        tryVerify(() => findText("Move to Trash"))
        keyClick(Qt.Key_Escape)
        compare(selectedNames("Left"), ["lighting.json"])
    }

    function test_offersNoMenuBelowTheRows() {
        openSplit()
        clickRow("Left", "lighting.json")
        mouseClick(pane("Left"), 200, 400, Qt.RightButton)
        compare(selectedNames("Left"), [])
        wait(50)
        verify(!findText("Move to Trash"))
    }

    function test_fitsTheSmallestWindow() {
        openSplit(960, 640)
        clickRow("Left", "lighting.json")
        verify(rightOf(pane("Right")) <= window.width - 28)
        const gap = pane("Right").mapToItem(null, 0, 0).x - rightOf(pane("Left"))
        compare(gap, 48)
        verify(!findText("2 days ago"))
        const bar = named("Move to other side")
        verify(bar.mapToItem(null, 0, bar.height).y <= window.height)
        verify(pane("Left").mapToItem(null, 0, pane("Left").height).y < bar.mapToItem(null, 0, 0).y)
        verify(rightOf(row("Left", "lighting.json")) <= rightOf(pane("Left")))
    }
}
