// Works the split view over the same few files on both sides.
import QtQuick
import QtTest
import Nookwise

ScreenTest {
    function openSplit(width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillFolders()
        keyClick(Qt.Key_Backslash, Qt.ControlModifier)
        settle()
    }

    // Folders are read, files are moved, and what follows is drawn.
    function settle() {
        bench.runScan()
        wait(0)
        waitForRendering(window.contentItem)
    }

    // "Left" or "Right".
    function pane(side) {
        return search(window.contentItem, item => item.headerHeight !== undefined && item.Accessible.name.startsWith(side))
    }

    function rowIn(side, name) {
        return search(pane(side), item => item.kindGroup !== undefined && item.spoken !== undefined && item.name === name)
    }

    function row(side, name) {
        const found = rowIn(side, name)
        verify(found, name + " is not on the " + side)
        return found
    }

    function rowNames(side) {
        return rowsOf(side).map(item => item.name)
    }

    function selectedNames(side) {
        return rowsOf(side).filter(item => item.selected).map(item => item.name)
    }

    function rowsOf(side) {
        const found = []
        search(pane(side), item => {
            if (item.kindGroup !== undefined && item.spoken !== undefined)
                found.push(item)
            return false
        })
        return found.sort((a, b) => a.index - b.index)
    }

    function ringName(side) {
        const found = rowsOf(side).find(item => item.ring)
        return found ? found.name : ""
    }

    function clickRow(side, name, modifiers = Qt.NoModifier, button = Qt.LeftButton) {
        const item = row(side, name)
        mouseClick(item, 120, 20, button, modifiers)
    }

    function doubleClickRow(side, name) {
        bench.setDoubleClickInterval(400)
        mouseDoubleClickSequence(row(side, name), 120, 20)
        bench.setDoubleClickInterval(0)
        settle()
    }

    function isActive(side): bool {
        return pane(side).Accessible.name.endsWith("active")
    }

    function hasFocus(side): bool {
        let item = window.activeFocusItem
        while (item && item !== pane(side))
            item = item.parent
        return item !== null
    }
}
