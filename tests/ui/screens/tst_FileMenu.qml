import QtQuick
import QtTest
import Nookwise

ScreenTest {
    name: "FileMenu"

    readonly property string prompt: "Ask for a file — “pdfs from gmail last month”"
    readonly property string invoice: "Invoice 2201 – Fernhill.pdf"
    readonly property string scan: "scan-0091.pdf"
    readonly property string kiln: "Kiln service.pdf"
    readonly property string notes: "notes <b>invoice<b>.txt"

    function askFor(question, width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillAnswers()
        bench.runScan()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        for (const letter of question)
            keyClick(letter)
        waitForRendering(window.contentItem)
    }

    function row(name) {
        const item = search(window.contentItem, item => item.Accessible.role === Accessible.ListItem && item.Accessible.name === name)
        verify(item, name)
        return item
    }

    function openMenu(name, x = 200, y = 30) {
        mouseClick(row(name), x, y, Qt.RightButton)
    }

    function entry(text) {
        return search(window.contentItem, item => item.Accessible.role === Accessible.MenuItem && item.Accessible.name === text)
    }

    function menuBox() {
        verify(entry("Open"))
        return entry("Open").menu.contentItem.parent
    }

    function highlighted() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.MenuItem && item.highlighted)?.Accessible.name ?? ""
    }

    function focusName() {
        return window.activeFocusItem?.Accessible.name ?? ""
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.pageRows !== undefined)
    }

    function test_offersWhatCanBeDone() {
        askFor("invoice")
        openMenu(scan)
        verify(row(scan).Accessible.selected)
        for (const text of ["Open", "Show in folder", "Rename by text inside…", "Copy text", "Move to Trash"]) {
            verify(entry(text), text)
            verify(entry(text).enabled, text)
            compare(entry(text).height, 32)
        }
        compare(entry("Open").Accessible.description, "Enter")
        compare(entry("Copy text").Accessible.description, "Ctrl Shift C")
        compare(entry("Move to Trash").Accessible.description, "Delete")
        compare(highlighted(), "")
        compare(menuBox().width, 262)
        compare(menuBox().height, 198)
    }

    function test_disablesWhatCannotBeDone() {
        askFor("invoice")
        openMenu(notes)
        verify(!entry("Rename by text inside…").enabled)
        verify(!entry("Copy text").enabled)
        keyClick(Qt.Key_Escape)
        openMenu(invoice)
        verify(entry("Rename by text inside…").enabled)
        verify(!entry("Copy text").enabled)
    }

    function test_opensWhereThePointerIs() {
        askFor("invoice")
        openMenu(scan, 150, 40)
        const at = row(scan).mapToItem(window.contentItem, 150, 40)
        const box = menuBox().mapToItem(window.contentItem, 0, 0)
        fuzzyCompare(box.x, at.x, 1)
        fuzzyCompare(box.y, at.y, 1)
    }

    function test_staysInsideTheWindow() {
        askFor("invoice", 960, 640)
        const item = row(notes)
        openMenu(notes, item.width - 1, item.height - 1)
        const box = menuBox().mapToItem(window.contentItem, 0, 0)
        verify(box.x >= 0 && box.x + menuBox().width <= window.width, box.x)
        verify(box.y >= 0 && box.y + menuBox().height <= window.height, box.y)
    }

    function test_doesWhatIsClicked() {
        askFor("invoice")
        openMenu(scan)
        mouseClick(entry("Open"))
        compare(bench.openedNames(), [scan])
        verify(!entry("Open"))
        openMenu(scan)
        mouseClick(entry("Show in folder"))
        compare(bench.timesRevealed(), 1)
        openMenu(scan)
        mouseClick(entry("Copy text"))
        verify(bench.clipboardText().startsWith("Fernhill Garden Trust."))
        openMenu(scan)
        mouseClick(entry("Rename by text inside…"))
        verify(window.rename.open)
    }

    function test_whatIsDisabledDoesNothing() {
        askFor("invoice")
        openMenu(notes)
        mouseClick(entry("Rename by text inside…"))
        verify(!window.rename.open)
    }

    function test_isWorkedWithTheKeyboard_data() {
        return [
            { tag: "menu key", key: Qt.Key_Menu, modifiers: Qt.NoModifier },
            { tag: "shift F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier }
        ]
    }

    function test_isWorkedWithTheKeyboard(data) {
        askFor("invoice")
        keyClick(Qt.Key_Down)
        keyClick(data.key, data.modifiers)
        compare(highlighted(), "Open")
        keyClick(Qt.Key_Up)
        compare(highlighted(), "Open")
        keyClick(Qt.Key_Down)
        compare(highlighted(), "Show in folder")
        keyClick(Qt.Key_Down)
        compare(highlighted(), "Rename by text inside…")
        keyClick(Qt.Key_End)
        compare(highlighted(), "Move to Trash")
        keyClick(Qt.Key_Home)
        compare(highlighted(), "Open")
        keyClick("s")
        compare(highlighted(), "Show in folder")
        keyClick(Qt.Key_Return)
        verify(!entry("Open"))
        compare(bench.timesRevealed(), 1)
        compare(focusName(), prompt)
        compare(bench.question(), "invoice")
        keyClick(data.key, data.modifiers)
        keyClick(Qt.Key_Escape)
        verify(!entry("Open"))
        compare(bench.question(), "invoice")
        compare(focusName(), prompt)
    }

    function test_arrowsAndLettersPassByWhatIsDisabled() {
        askFor("invoice")
        mouseClick(row(notes))
        keyClick(Qt.Key_Menu)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down)
        compare(highlighted(), "Move to Trash")
        keyClick(Qt.Key_Up)
        compare(highlighted(), "Show in folder")
        keyClick("c")
        compare(highlighted(), "Show in folder")
        keyClick("m")
        compare(highlighted(), "Move to Trash")
    }

    function test_opensBelowTheRowThatHasTheFocus() {
        askFor("invoice")
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Menu)
        const top = row(scan).mapToItem(window.contentItem, 0, 0).y
        const box = menuBox().mapToItem(window.contentItem, 0, 0)
        verify(box.y > top && box.y <= top + row(scan).height, box.y)
    }

    function test_closesOnAPressBesideIt() {
        askFor("invoice")
        openMenu(scan)
        mouseClick(window.contentItem, 600, 740)
        verify(!entry("Open"))
        verify(row(scan).Accessible.selected)
    }

    function test_closesWhenTheFileGoes() {
        askFor("invoice")
        openMenu(scan)
        bench.loseFiles()
        verify(!entry("Open"))
    }

    function test_staysWhenOnlyTextIsRead() {
        askFor("invoice")
        openMenu(invoice)
        verify(!entry("Copy text").enabled)
        bench.setText("/home/user/Downloads/Fernhill/" + invoice, "14 beds")
        verify(entry("Copy text"))
        verify(entry("Copy text").enabled)
    }

    function test_keysOfTheWindowWaitUntilItIsClosed() {
        askFor("invoice")
        openMenu(scan)
        keyClick(Qt.Key_3, Qt.ControlModifier)
        compare(bench.section(), "ask")
    }

    function clickInSheet(text) {
        const button = search(window.contentItem, item => item.text === text && item.clicked !== undefined && item.Accessible.role === Accessible.Button)
        verify(button, text)
        mouseClick(button)
    }

    function test_trashingGoesOnToTheNextRow_data() {
        return [
            { tag: "by the menu", ask: () => {
                openMenu(scan)
                mouseClick(entry("Move to Trash"))
            } },
            { tag: "by the menu and the keyboard", ask: () => {
                mouseClick(row(scan))
                keyClick(Qt.Key_Menu)
                keyClick(Qt.Key_End)
                keyClick(Qt.Key_Return)
            } },
            { tag: "by the key", ask: () => {
                mouseClick(row(scan))
                keyClick(Qt.Key_Delete)
            } }
        ]
    }

    function test_trashingGoesOnToTheNextRow(data) {
        askFor("invoice")
        data.ask()
        compare(bench.askedNames(), [scan])
        clickInSheet("Move to Trash")
        bench.runScan()
        bench.passMinutes(1)
        verify(!bench.exists("/home/user/Downloads/" + scan))
        verify(row(kiln).Accessible.selected)
        verify(list().activeFocus)
    }

    function test_deleteEditsTheQuestionWhileItIsTyped() {
        askFor("invoice")
        keyClick(Qt.Key_Home)
        keyClick(Qt.Key_Delete)
        compare(bench.question(), "nvoice")
        compare(bench.askedNames(), [])
    }

    function test_aHeldDeleteAsksOnce() {
        askFor("invoice")
        mouseClick(row(scan))
        bench.holdKey(Qt.Key_Delete)
        compare(bench.askedNames(), [scan])
        clickInSheet("Cancel")
        compare(bench.askedNames(), [])
    }
}
