import QtQuick
import QtTest

ScreenTest {
    name: "Rename"

    readonly property string trust: "scan-0091.pdf becomes Fernhill Garden Trust.pdf"
    readonly property string second: "scan-0092.pdf becomes Fernhill Garden Trust (2).pdf, same name"
    readonly property string photo: "IMG_4471.heic, no text found — name kept"

    function openRename(width = 1200, height = 760) {
        openWindow(width, height)
        bench.runScan()
        bench.openRename()
        tryVerify(() => findText("Rename by text inside…"))
        waitForRendering(window.contentItem)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "New names")
    }

    function option(text) {
        return search(window.contentItem, item => item.Accessible.role === Accessible.CheckBox && item.Accessible.name === text)
    }

    function tickAllBox() {
        return search(window.contentItem, item => item.Accessible.name.startsWith("Select all, ") && item.checkState !== undefined)
    }

    function verifyTicked(name, ticked) {
        compare(named(name).Accessible.checked, ticked, name)
    }

    function test_showsThePlan_data() {
        return [{ tag: "large", width: 1200, height: 760 }, { tag: "small", width: 960, height: 640 }]
    }

    function test_showsThePlan(data) {
        openRename(data.width, data.height)
        verifyText("Names are built from what’s written inside each picture or PDF.")
        verifyText("Now")
        verifyText("After")
        verifyText("scan-0091.pdf")
        verifyText("Fernhill Garden Trust.pdf")
        verifyText("Fernhill Garden Trust (2).pdf")
        verifyText("same name")
        verifyText("no text found — name kept")
        verifyText("Taken names get “(2)”. You can undo with ⌘Z.")
        verifyText("Cancel")
        verifyText("Rename 3 files")
        verifyTicked(trust, true)
        verifyTicked(second, true)
        verifyTicked(photo, false)
        compare(tickAllBox().checkState, Qt.PartiallyChecked)
        compare(tickAllBox().Accessible.name, "Select all, 3 of 4")
        for (const text of ["Fernhill Garden Trust (2).pdf", "no text found — name kept", "Rename 3 files", "lowercase-with-dashes"])
            verify(rightOf(findText(text)) <= window.width - 28, text)
    }

    function test_optionsChangeThePlanAtOnce() {
        openRename()
        compare(option("Text inside · first line").checkState, Qt.Checked)
        compare(option("Date · 2026-10-14").checkState, Qt.Unchecked)
        compare(option("lowercase-with-dashes").checkState, Qt.Unchecked)
        mouseClick(option("Date · 2026-10-14"))
        verifyText("Fernhill Garden Trust — 2023-11-14.pdf")
        verifyText("Rename 4 files")
        compare(tickAllBox().checkState, Qt.Checked)
        option("lowercase-with-dashes").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        verifyText("fernhill-garden-trust-2023-11-14.pdf")
        compare(option("lowercase-with-dashes").checkState, Qt.Checked)
        mouseClick(option("Date · 2026-10-14"))
        mouseClick(option("Text inside · first line"))
        verifyText("Rename 0 files")
        verify(!named("Rename 0 files").enabled)
        verify(!tickAllBox().enabled)
    }

    function test_ticksByMouse() {
        openRename()
        const row = named(trust)
        mouseClick(row, 22, row.height / 2)
        verifyTicked(trust, false)
        verifyText("Rename 2 files")
        mouseClick(row, 22, row.height / 2)
        verifyText("Rename 3 files")
        const kept = named(photo)
        mouseClick(kept, 22, kept.height / 2)
        verifyTicked(photo, false)
        verifyText("Rename 3 files")
    }

    function test_ticksByKeyboard() {
        openRename()
        verify(list().activeFocus)
        keyClick(Qt.Key_Space)
        verifyTicked(trust, false)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Space)
        verifyTicked(second, false)
        keyClick(Qt.Key_End)
        keyClick(Qt.Key_Space)
        verifyText("Rename 0 files")
        keyClick(Qt.Key_Home)
        keyClick(Qt.Key_Space)
        verifyTicked(trust, true)
        keyClick(Qt.Key_A, Qt.ControlModifier | Qt.ShiftModifier)
        verifyText("Rename 0 files")
        keyClick(Qt.Key_A, Qt.ControlModifier)
        verifyText("Rename 3 files")
    }

    function test_pagesThroughManyRows() {
        openRename()
        bench.openRenameOfMany(500)
        waitForRendering(window.contentItem)
        verifyText("Rename 500 files")
        keyClick(Qt.Key_PageDown)
        verify(list().currentIndex > 3)
        keyClick(Qt.Key_End)
        compare(list().currentIndex, 499)
        keyClick(Qt.Key_PageUp)
        compare(list().currentIndex, 492)
        mouseClick(option("lowercase-with-dashes"))
        compare(list().currentIndex, 492)
        tryVerify(() => findNamed("scan 492.pdf becomes letter-492.pdf"))
    }

    function test_theBoxOfAllTicksAllOrNone() {
        openRename()
        mouseClick(tickAllBox())
        verifyText("Rename 0 files")
        compare(tickAllBox().checkState, Qt.Unchecked)
        mouseClick(tickAllBox())
        verifyText("Rename 3 files")
    }

    function test_tabReachesEveryGroupOnce() {
        openRename()
        named("Back").forceActiveFocus(Qt.TabFocusReason)
        const stops = []
        for (let i = 0; i < 8; ++i) {
            stops.push(window.activeFocusItem.Accessible.name)
            keyClick(Qt.Key_Tab)
        }
        compare(stops, ["Back", "Text inside · first line", "Date · 2026-10-14", "lowercase-with-dashes",
            "Select all, 3 of 4", trust, "Cancel", "Rename 3 files"])
    }

    function test_leaves_data() {
        return [
            { tag: "Escape", leave: () => keyClick(Qt.Key_Escape) },
            { tag: "Back", leave: () => clickNamed("Back") },
            { tag: "Cancel", leave: () => clickNamed("Cancel") },
            { tag: "the same section", leave: () => keyClick(Qt.Key_1, Qt.ControlModifier) },
            { tag: "another section", leave: () => keyClick(Qt.Key_5, Qt.ControlModifier) }
        ]
    }

    function test_leaves(data) {
        openRename()
        data.leave()
        tryVerify(() => !findText("Rename by text inside…"))
        verify(window.activeFocusItem !== null)
        verify(bench.exists("/home/user/Downloads/scan-0091.pdf"))
    }

    function test_renamesWhatIsTicked_data() {
        return [
            { tag: "by mouse", press: () => clickNamed("Rename 2 files") },
            { tag: "by Enter", press: () => {
                    named("Rename 2 files").forceActiveFocus(Qt.TabFocusReason)
                    keyClick(Qt.Key_Return)
                } }
        ]
    }

    function test_renamesWhatIsTicked(data) {
        openRename()
        keyClick(Qt.Key_Space)
        data.press()
        tryVerify(() => findText("Renamed 2 files"))
        verifyNoText("Rename by text inside…")
        verify(bench.exists("/home/user/Downloads/scan-0091.pdf"))
        verify(bench.exists("/home/user/Downloads/Fernhill Garden Trust (2).pdf"))
        verify(bench.exists("/home/user/Downloads/Harbour road.png"))
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        tryVerify(() => findText("Old names are back"))
        verify(bench.exists("/home/user/Downloads/scan-0092.pdf"))
    }

    function test_textsThatAreReadMeanwhileAppear() {
        openRename()
        bench.setText("/home/user/Downloads/IMG_4471.heic", "Sunset over the bay")
        verifyText("Sunset over the bay.heic")
        verifyText("Rename 4 files")
    }

    function test_theSecondPressOfADoubleClickRenamesNothing() {
        openWindow()
        bench.runScan()
        bench.setDoubleClickInterval(400)
        bench.openRename()
        tryVerify(() => findText("Rename by text inside…"))
        clickNamed("Rename 3 files")
        verifyText("Rename by text inside…")
        verify(bench.exists("/home/user/Downloads/scan-0091.pdf"))
    }
}
