// A test that works the window and looks for what it shows.
import QtQuick
import QtTest
import Nookwise

TestCase {
    id: test

    readonly property var window: bench.window

    function initTestCase() {
        Theme.reducedMotion = true
    }

    function openWindow(width = 1200, height = 760) {
        bench.open(width, height)
        tryVerify(() => window.active)
        waitForRendering(window.contentItem)
    }

    function cleanup() {
        bench.close()
    }

    // The first item in sight below `item` that the test accepts, or null.
    function search(item, accepts) {
        if (!item.visible)
            return null
        if (accepts(item))
            return item
        for (let i = 0; i < item.children.length; ++i) {
            const found = search(item.children[i], accepts)
            if (found)
                return found
        }
        return null
    }

    function findText(text, from = window.contentItem) {
        return search(from, item => item.text === text && item.textFormat !== undefined)
    }

    // By the name that a screen reader speaks.
    function findNamed(name, from = window.contentItem) {
        return search(from, item => item.Accessible.name === name && !item.Accessible.ignored)
    }

    function verifyText(text) {
        verify(findText(text), "“" + text + "” is not shown")
    }

    function verifyNoText(text) {
        verify(!findText(text), "“" + text + "” is shown")
    }

    function named(name) {
        const item = findNamed(name)
        verify(item, "nothing is named “" + name + "”")
        return item
    }

    function clickNamed(name) {
        const item = named(name)
        mouseClick(item)
    }

    // The right edge of an item in the window.
    function rightOf(item): real {
        return item.mapToItem(window.contentItem, item.width, 0).x
    }
}
