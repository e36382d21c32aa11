import QtQuick
import QtTest

ScreenTest {
    name: "Window"

    function test_startsTheFirstScan() {
        openWindow()
        verify(bench.scanning())
        compare(window.title, "Nookwise")
        compare(window.minimumWidth, 960)
        compare(window.minimumHeight, 640)
    }

    function test_keysOpenSections() {
        openWindow()
        for (const [key, section] of [[Qt.Key_F, "ask"], [Qt.Key_3, "sweep"], [Qt.Key_4, "duplicates"], [Qt.Key_5, "activity"], [Qt.Key_1, "home"]]) {
            keyClick(key, Qt.ControlModifier)
            compare(bench.section(), section)
        }
    }

    function test_sidebarNamesTheSections() {
        openWindow()
        named("Sections")
        named("Home")
        named("Ask")
        named("Sweep")
        named("Duplicates")
        named("Activity")
        verifyText("Clean up")
        bench.fillHome()
        bench.runScan()
        named("Sweep, 1.36 GB")
        named("Duplicates, 1")
        verifyText("61.27 GB free")
        named("61.27 GB free of 494.38 GB")
    }

    function test_sidebarOpensSections() {
        openWindow()
        clickNamed("Sweep")
        compare(bench.section(), "sweep")
        verify(named("Sweep").Accessible.selected)
        verify(!named("Home").Accessible.selected)
    }

    function test_sidebarIsWorkedWithArrows() {
        openWindow()
        keyClick(Qt.Key_F6)
        compare(window.activeFocusItem.Accessible.name, "Home")
        verify(named("Home").focusShown)
        keyClick(Qt.Key_Down)
        compare(window.activeFocusItem.Accessible.name, "Ask")
        keyClick(Qt.Key_Down)
        compare(window.activeFocusItem.Accessible.name, "Sweep")
        verify(named("Sweep").focusShown)
        verify(!named("Home").focusShown)
        compare(bench.section(), "home")
        keyClick(Qt.Key_Return)
        compare(bench.section(), "sweep")
        tryVerify(() => window.activeFocusItem.Accessible.role === Accessible.PageTab)
        keyClick(Qt.Key_F6)
        keyClick(Qt.Key_End)
        keyClick(Qt.Key_Space)
        compare(bench.section(), "split")
    }

    function test_f6CyclesBetweenSidebarAndContent() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        keyClick(Qt.Key_F6)
        compare(window.activeFocusItem.Accessible.name, "Home")
        keyClick(Qt.Key_F6)
        compare(window.activeFocusItem.Accessible.name, "Review the piles")
        verify(window.activeFocusItem.visualFocus)
    }

    function test_controlsWorkTheWindow() {
        openWindow()
        clickNamed("Maximise")
        tryVerify(() => window.visibility === Window.Maximized)
        clickNamed("Restore")
        tryVerify(() => window.visibility === Window.Windowed)
        named("Minimise")
        clickNamed("Close")
        tryVerify(() => !window.visible)
    }

    function test_tabFromTheEndComesRoundToTheSidebar() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        const stops = []
        for (let i = 0; i < 10; ++i) {
            stops.push(window.activeFocusItem.Accessible.name)
            keyClick(Qt.Key_Tab)
        }
        compare(stops, ["Review the piles", "Forgotten downloads, 600 MB, untouched 90+ days", "Old installers, 50 MB, apps already installed",
            "Old screenshots, 5 MB, older than a month", "Large files, 700 MB, over 500 MB each", "Duplicates, 100 KB, exact copies",
            "Minimise", "Maximise", "Close", "Home"])
    }
}
