import QtQuick
import QtTest
import Nookwise

SplitTest {
    name: "SplitDrop"

    readonly property string fresh: "file:///tmp/fresh%20file.zip\r\n"
    readonly property string ownFile: "file:///home/user/Downloads/workshop.zip\r\n"

    function openWithFresh() {
        openSplit()
        bench.makeFile("/tmp/fresh file.zip")
    }

    function over(side, x, y, list = fresh, keys = Qt.NoModifier): bool {
        const point = pane(side).mapToItem(null, x, y)
        const taken = bench.dragOver(point.x, point.y, list, keys)
        waitForRendering(window.contentItem)
        return taken
    }

    function ownOver(side, x, y, list, keys = Qt.NoModifier): bool {
        const point = pane(side).mapToItem(null, x, y)
        const taken = bench.dragOwnOver(point.x, point.y, list, keys)
        waitForRendering(window.contentItem)
        return taken
    }

    function verifyOwnHint() {
        verifyText("Drop to move here")
        verifyText("Hold ⌥ to copy instead")
    }

    function verifyNoHint() {
        verifyNoText("Drop to move here")
        verifyNoText("Hold ⌥ to copy instead")
        verifyNoText("Drop to copy here")
    }

    function test_saysOnTheOtherSideHowToMoveAndToCopy() {
        openSplit()
        verify(ownOver("Right", 200, 400, ownFile))
        verifyOwnHint()
        verify(ownOver("Right", 200, 400, ownFile, Qt.AltModifier))
        verifyOwnHint()
        const glazes = row("Right", "Glazes").mapToItem(pane("Right"), 100, 20)
        verify(ownOver("Right", glazes.x, glazes.y, ownFile))
        verifyOwnHint()
        verify(!row("Right", "Glazes").target)
        bench.dragAway()
        waitForRendering(window.contentItem)
        verifyNoHint()
    }

    function test_saysNothingOverTheSideThatTheFilesComeFrom() {
        openSplit()
        verify(!ownOver("Left", 200, 400, ownFile))
        verifyNoHint()
        verify(!ownOver("Left", 200, 400, ownFile, Qt.AltModifier))
        verifyNoHint()
        bench.dragAway()
    }

    function test_copiesToTheOtherSideWithAltHeld() {
        openSplit()
        verify(ownOver("Right", 200, 400, ownFile, Qt.AltModifier))
        verify(bench.dropDragged())
        settle()
        verify(bench.exists("/home/user/Downloads/workshop.zip"))
        verify(bench.exists("/home/user/Documents/workshop.zip"))
    }

    function test_showsWhatADropWouldDo() {
        openWithFresh()
        verify(over("Right", 200, 400))
        verifyText("Drop to copy here")
        verifyNoText("Hold ⌥ to copy instead")
        verify(over("Right", 200, 400, fresh, Qt.ShiftModifier))
        verifyText("Drop to move here")
        bench.dragAway()
        waitForRendering(window.contentItem)
        verifyNoText("Drop to copy here")
        verifyNoText("Drop to move here")
    }

    function test_copiesWhatOtherProgramsDrop() {
        openWithFresh()
        verify(over("Right", 200, 400))
        verify(bench.dropDragged())
        settle()
        verify(bench.exists("/home/user/Documents/fresh file.zip"))
        verify(bench.exists("/tmp/fresh file.zip"))
        verify(rowIn("Right", "fresh file.zip"))
        verifyNoText("Drop to copy here")
        verify(isActive("Right"))
    }

    function test_marksTheFolderThatWouldTakeTheFiles() {
        openSplit()
        const glazes = row("Right", "Glazes").mapToItem(pane("Right"), 100, 20)
        verify(ownOver("Right", glazes.x, glazes.y, "file:///home/user/Documents/Seed%20list.rtf\r\n"))
        verify(row("Right", "Glazes").target)
        verifyNoHint()
        verify(bench.dropDragged())
        settle()
        verify(bench.exists("/home/user/Documents/Glazes/Seed list.rtf"))
        verify(!row("Right", "Glazes").target)
    }

    function test_offersNothingWhereNothingWouldHappen_data() {
        return [
            {tag: "itself", list: "file:///home/user/Documents\r\n"},
            {tag: "a folder above", list: "file:///home\r\n"},
            {tag: "what is there", list: "file:///home/user/Documents/Seed%20list.rtf\r\n"},
            {tag: "no file", list: "https://example.org/a.zip\r\n"},
            {tag: "nothing", list: "\r\n"}
        ]
    }

    function test_offersNothingWhereNothingWouldHappen(data) {
        openWithFresh()
        verify(!over("Right", 200, 400, data.list))
        verifyNoText("Drop to copy here")
        verify(!bench.dropDragged())
        settle()
        compare(rowNames("Right"), ["Glazes", "Seed list.rtf"])
    }

    function test_offersNothingWhileFilesAreOnTheirWay() {
        openWithFresh()
        bench.startMoving()
        verify(!over("Right", 200, 400))
        verifyNoText("Drop to copy here")
        bench.dragAway()
    }

    function test_takesNothingBesideThePanes() {
        openWithFresh()
        verify(!bench.dragOver(700, 90, fresh, Qt.NoModifier))
        bench.dragAway()
    }

    function test_scrollsWhileFilesAreHeldNearTheEdge() {
        openWithFresh()
        bench.fillFolder("/home/user/Documents/Glazes", 200)
        doubleClickRow("Right", "Glazes")
        const first = rowNames("Right")[0]
        over("Right", 200, pane("Right").height - 60)
        tryVerify(() => rowNames("Right")[0] !== first)
        bench.dragAway()
    }
}
