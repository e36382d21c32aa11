import QtQuick
import QtTest
import Nookwise

SplitTest {
    name: "SplitKeys"

    function press(key, modifiers = Qt.NoModifier) {
        keyClick(key, modifiers)
        settle()
    }

    function test_movesAmongTheRows() {
        openSplit()
        press(Qt.Key_Down)
        compare(selectedNames("Left"), ["Fernhill"])
        compare(ringName("Left"), "Fernhill")
        press(Qt.Key_Down)
        compare(selectedNames("Left"), ["Invoice 2207.pdf"])
        press(Qt.Key_End)
        compare(ringName("Left"), "workshop.zip")
        press(Qt.Key_Up)
        press(Qt.Key_Home)
        compare(selectedNames("Left"), ["Fernhill"])
    }

    function test_extendsAndTogglesTheSelection() {
        openSplit()
        press(Qt.Key_Down)
        press(Qt.Key_Down, Qt.ShiftModifier)
        compare(selectedNames("Left"), ["Fernhill", "Invoice 2207.pdf"])
        press(Qt.Key_End, Qt.ControlModifier)
        press(Qt.Key_Space, Qt.ControlModifier)
        compare(selectedNames("Left"), ["Fernhill", "Invoice 2207.pdf", "workshop.zip"])
        press(Qt.Key_Escape)
        compare(selectedNames("Left"), [])
        press(Qt.Key_A, Qt.ControlModifier)
        compare(selectedNames("Left").length, 4)
        press(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier)
        compare(selectedNames("Left"), [])
    }

    function test_changesSides() {
        openSplit()
        press(Qt.Key_Left)
        verify(isActive("Left"))
        press(Qt.Key_Right)
        verify(isActive("Right"))
        verify(hasFocus("Right"))
        press(Qt.Key_Right)
        verify(isActive("Right"))
        press(Qt.Key_Left)
        verify(hasFocus("Left"))
        press(Qt.Key_Tab)
        verify(hasFocus("Right"))
        verify(isActive("Right"))
        press(Qt.Key_Backtab, Qt.ShiftModifier)
        verify(hasFocus("Left"))
    }

    function test_goesOnToTheButtonsByTab() {
        openSplit()
        press(Qt.Key_Tab)
        press(Qt.Key_Down)
        for (const name of ["Move selected to the other side", "Copy selected to the other side", "Swap sides", "Move to other side"]) {
            press(Qt.Key_Tab)
            compare(window.activeFocusItem.Accessible.name, name)
        }
    }

    function test_passesByButtonsThatCannotBePressed() {
        openSplit()
        press(Qt.Key_Tab)
        press(Qt.Key_Tab)
        compare(window.activeFocusItem.Accessible.name, "Swap sides")
    }

    function listRing(side) {
        return search(pane(side), item => item.around !== undefined && item.parent.rowsTop !== undefined)
    }

    function test_theFocusOutlivesTheButtonThatPassesFiles_data() {
        return [
            {tag: "move", name: "Move selected to the other side"},
            {tag: "copy", name: "Copy selected to the other side"},
            {tag: "bar", name: "Move to other side"}
        ]
    }

    function test_theFocusOutlivesTheButtonThatPassesFiles(data) {
        openSplit()
        press(Qt.Key_End)
        named(data.name).forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Return)
        verify(hasFocus("Left"))
        settle()
        verify(hasFocus("Left"))
        verify(bench.exists("/home/user/Documents/workshop.zip"))
        press(Qt.Key_Home)
        compare(ringName("Left"), "Fernhill")
    }

    function test_theFocusOutlivesTheWayUp() {
        openSplit()
        named("Up one folder").forceActiveFocus(Qt.TabFocusReason)
        press(Qt.Key_Return)
        compare(selectedNames("Left"), ["Downloads"])
        verify(hasFocus("Left"))
        compare(ringName("Left"), "Downloads")
    }

    function test_theRingIsAroundTheListWhileNoRowHasIt() {
        openSplit()
        press(Qt.Key_Right)
        verify(listRing("Right"))
        verify(!listRing("Left"))
        press(Qt.Key_Down)
        verify(!listRing("Right"))
        compare(ringName("Right"), "Glazes")
        mouseClick(pane("Left"), 200, 400)
        verify(!listRing("Left"))
    }

    function test_offersTheMenuOfEverythingWhileNoRowHasTheKeyboard() {
        openSplit()
        press(Qt.Key_A, Qt.ControlModifier)
        keyClick(Qt.Key_Menu)
        tryVerify(() => findText("Move to Trash"))
        compare(selectedNames("Left").length, 4)
        keyClick(Qt.Key_Escape)
    }

    function test_opensAndGoesUp() {
        openSplit()
        press(Qt.Key_Down)
        press(Qt.Key_Return)
        compare(rowNames("Left"), ["plan.pdf"])
        compare(selectedNames("Left"), [])
        press(Qt.Key_Down)
        press(Qt.Key_Enter)
        compare(bench.openedNames(), ["plan.pdf"])
        press(Qt.Key_Backspace)
        compare(selectedNames("Left"), ["Fernhill"])
        compare(ringName("Left"), "Fernhill")
        press(Qt.Key_Backspace)
        compare(selectedNames("Left"), ["Downloads"])
        press(Qt.Key_Backspace)
        compare(selectedNames("Left"), ["Downloads"])
    }

    function test_aHeldKeyOpensOnce() {
        openSplit()
        press(Qt.Key_Down)
        press(Qt.Key_Down)
        bench.holdKey(Qt.Key_Return)
        compare(bench.openedNames(), ["Invoice 2207.pdf"])
    }

    function test_movesAndCopiesByTheirKeys() {
        openSplit()
        press(Qt.Key_End)
        press(Qt.Key_M, Qt.ControlModifier | Qt.AltModifier | Qt.ShiftModifier)
        verify(bench.exists("/home/user/Documents/workshop.zip"))
        verify(bench.exists("/home/user/Downloads/workshop.zip"))
        press(Qt.Key_Up)
        compare(selectedNames("Left"), ["lighting.json"])
        press(Qt.Key_M, Qt.ControlModifier | Qt.ShiftModifier)
        verify(bench.exists("/home/user/Documents/lighting.json"))
        verify(!bench.exists("/home/user/Downloads/lighting.json"))
        verify(hasFocus("Left"))
        compare(rowNames("Left"), ["Fernhill", "Invoice 2207.pdf", "workshop.zip"])
        // The keyboard stays in the place of the file that went.
        compare(ringName("Left"), "workshop.zip")
    }

    function test_asksBeforeTheTrash() {
        openSplit()
        press(Qt.Key_Delete)
        compare(bench.askedNames(), [])
        press(Qt.Key_End)
        press(Qt.Key_Delete)
        compare(bench.askedNames(), ["workshop.zip"])
        press(Qt.Key_Return)
        verify(!bench.exists("/home/user/Downloads/workshop.zip"))
        compare(rowNames("Left"), ["Fernhill", "Invoice 2207.pdf", "lighting.json"])
    }

    function test_goesToWhatIsTyped() {
        openSplit()
        for (const letter of "inv")
            keyClick(letter)
        compare(selectedNames("Left"), ["Invoice 2207.pdf"])
        keyClick(Qt.Key_Space)
        compare(selectedNames("Left"), ["Invoice 2207.pdf"])
    }

    function test_theSpaceKeySelects() {
        openSplit()
        press(Qt.Key_Down)
        press(Qt.Key_Space)
        compare(selectedNames("Left"), [])
        press(Qt.Key_Space)
        compare(selectedNames("Left"), ["Fernhill"])
    }

    function test_offersTheMenu_data() {
        return [
            {tag: "menu key", key: Qt.Key_Menu, modifiers: Qt.NoModifier},
            {tag: "Shift+F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier}
        ]
    }

    function test_offersTheMenu(data) {
        openSplit()
        press(Qt.Key_End)
        keyClick(data.key, data.modifiers)
        tryVerify(() => findText("Show in folder"))
        keyClick(Qt.Key_Escape)
        tryVerify(() => hasFocus("Left"))
        compare(selectedNames("Left"), ["workshop.zip"])
    }

    function test_cyclesThroughTheWindow() {
        openSplit()
        press(Qt.Key_Down)
        press(Qt.Key_F6)
        compare(window.activeFocusItem.Accessible.name, "Move to other side")
        press(Qt.Key_F6)
        verify(!hasFocus("Left"))
        press(Qt.Key_F6)
        verify(hasFocus("Left"))
    }

    function test_showsTheRowThatItReaches() {
        openSplit()
        bench.fillFolder("/home/user/Downloads/Fernhill", 300)
        press(Qt.Key_Down)
        press(Qt.Key_Return)
        press(Qt.Key_End)
        const last = row("Left", "page 1299.txt")
        verify(last.ring)
        verify(last.mapToItem(pane("Left"), 0, last.height).y <= pane("Left").height - 36)
        press(Qt.Key_PageUp)
        verify(ringName("Left") !== "")
        press(Qt.Key_Home)
        verify(row("Left", "page 1000.txt").ring || row("Left", "plan.pdf").ring)
    }

    function test_theRingIsForTheKeyboard() {
        openSplit()
        clickRow("Left", "lighting.json")
        compare(ringName("Left"), "")
        press(Qt.Key_Down)
        compare(ringName("Left"), "workshop.zip")
    }
}
