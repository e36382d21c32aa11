import QtQuick
import QtTest

ScreenTest {
    name: "Activity"

    function openLog(days, perDay, width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillActivity(days, perDay)
        keyClick(Qt.Key_5, Qt.ControlModifier)
        tryVerify(() => findText("Everything Nookwise moved, renamed or trashed. Put anything back in one click."))
        waitForRendering(window.contentItem)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "Activity")
    }

    function row(title) {
        return search(list(), item => item.title === title && item.Accessible.role === Accessible.ListItem)
    }

    function heightOf(item): real {
        return item.mapToItem(window.contentItem, 0, 0).y
    }

    function test_beginsWithItsFigures_data() {
        return [{ tag: "list", days: 100 }, { tag: "few", days: 1 }, { tag: "nothing", days: 0 }]
    }

    function test_beginsWithItsFigures(data) {
        openLog(data.days, 5)
        compare(heightOf(search(list(), item => item.text === "Freed this month")), 119)
    }

    function test_theFiguresStayWhenTheFirstChangeComes() {
        openLog(0, 0)
        bench.fillActivity(10, 5)
        waitForRendering(window.contentItem)
        compare(heightOf(search(list(), item => item.text === "Freed this month")), 119)
    }

    function test_showsTheLog() {
        openLog(3, 2)
        for (const text of ["Freed this month", "600 MB", "Free on this Mac", "61.27 GB", "of 494.38 GB", "1 Nov",
                "Today", "Yesterday", "Swept 2 downloads", "Swept 101 downloads", "old.zip", "100 MB", "Put back"])
            verifyText(text)
        verifyNoText("Is back")
        verify(named("Freed this month, 600 MB"))
        verify(named("61.27 GB free of 494.38 GB"))
    }

    function test_oneClickPutsBack() {
        openLog(1, 2)
        clickNamed("Put back, Swept 1 downloads")
        compare(bench.changesPutBack(), 1)
        verifyText("Is back")
        verify(!findNamed("Put back, Swept 1 downloads"))
        verify(row("Swept 1 downloads").Accessible.name.endsWith(", is back"))
        named("Put back, Swept 2 downloads")
        verifyText("Freed this month")
        tryVerify(() => findNamed("Freed this month, 100 MB"))
    }

    function test_spaceAndEnterPutBack_data() {
        return [{ tag: "space", key: Qt.Key_Space }, { tag: "return", key: Qt.Key_Return }, { tag: "enter", key: Qt.Key_Enter }]
    }

    function test_spaceAndEnterPutBack(data) {
        openLog(1, 3)
        verify(list().activeFocus)
        verify(row("Swept 3 downloads").marked)
        keyClick(Qt.Key_Down)
        verify(row("Swept 2 downloads").marked)
        verify(!row("Swept 3 downloads").marked)
        keyClick(data.key)
        compare(bench.changesPutBack(), 1)
        verify(row("Swept 2 downloads").restored)
        verify(row("Swept 2 downloads").marked)
        keyClick(data.key)
        compare(bench.changesPutBack(), 1)
    }

    function test_keysMoveThroughALongLog() {
        openLog(100, 5)
        const end = list().count - 1
        compare(end, 499)
        keyClick(Qt.Key_PageDown)
        verify(list().currentIndex >= 4)
        keyClick(Qt.Key_End)
        compare(list().currentIndex, end)
        tryVerify(() => row("Swept 9901 downloads")?.marked)
        waitForRendering(window.contentItem)
        verify(list().atYEnd)
        verify(heightOf(row("Swept 9901 downloads")) + 64 <= window.height - 20)
        keyClick(Qt.Key_Down)
        compare(list().currentIndex, end)
        const place = list().contentY
        keyClick(Qt.Key_Space)
        compare(list().contentY, place)
        compare(bench.changesPutBack(), 1)
        keyClick(Qt.Key_Home)
        compare(list().currentIndex, 0)
        compare(heightOf(search(list(), item => item.text === "Freed this month")), 119)
        keyClick(Qt.Key_Up)
        compare(list().currentIndex, 0)
        keyClick(Qt.Key_PageUp)
        compare(list().currentIndex, 0)
    }

    function test_puttingBackLeavesTheListWhereItIs() {
        openLog(100, 5)
        list().contentY = 3000
        waitForRendering(window.contentItem)
        const place = list().contentY
        const button = search(list(), item => item.Accessible.name.startsWith("Put back, ") && item.mapToItem(list(), 0, 0).y > 0)
        mouseClick(button)
        compare(bench.changesPutBack(), 1)
        compare(list().contentY, place)
        keyClick(Qt.Key_Space)
        compare(bench.changesPutBack(), 1)
    }

    function test_aShortLogStaysAtItsBeginning() {
        openLog(1, 2)
        keyClick(Qt.Key_End)
        verify(row("Swept 1 downloads").marked)
        compare(heightOf(search(list(), item => item.text === "Freed this month")), 119)
    }

    function test_nothingScrollsUnderTheWindowsButtons() {
        openLog(10, 5)
        keyClick(Qt.Key_End)
        verify(heightOf(list()) >= 44)
    }

    function test_theLogIsOneStopForTab() {
        openLog(2, 2)
        keyClick(Qt.Key_Tab)
        compare(window.activeFocusItem.Accessible.name, "Minimise")
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        verify(list().activeFocus)
    }

    function test_saysWhenThereIsNothing() {
        openWindow()
        keyClick(Qt.Key_5, Qt.ControlModifier)
        tryVerify(() => findText("When you sweep something, it shows up here and can be put back."))
        verifyText("Zero KB")
        verifyText("61.27 GB")
        verifyNoText("of 494.38 GB")
        verifyNoText("Today")
        keyClick(Qt.Key_Space)
        compare(bench.changesPutBack(), 0)
    }

    function test_fitsTheSmallestWindow() {
        openLog(40, 2, 960, 640)
        verify(rightOf(named("Put back, Swept 2 downloads")) <= window.width - 28)
        const bars = search(list(), item => item.Accessible.role === Accessible.Graphic)
        const figure = named("Freed this month, " + search(list(), item => /MB|GB/.test(item.text ?? "")).text)
        verify(bars.mapToItem(null, 0, 0).x > rightOf(figure))
        verify(rightOf(search(list(), item => item.text === "Today")) <= window.width / 2 + 100)
    }
}
