// The rows of a pile.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

ListView {
    id: list

    required property Frame frame
    required property SweepModel sweep

    property int hoveredRow: -1
    readonly property int markedRow: hoveredRow >= 0 ? hoveredRow : activeFocus ? currentIndex : -1
    readonly property int rowHeight: frame.low ? 52 : 56
    readonly property int pageRows: Math.max(1, Math.floor(height / rowHeight) - 1)
    // Where each pile was left.
    property var places: ({})
    property string shownPile: ""
    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false

    clip: true
    model: sweep.rows
    reuseItems: true
    // Rows that are made ahead are still in the making when the pile changes under them.
    cacheBuffer: 0
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    keyNavigationEnabled: true
    highlightMoveDuration: 0
    currentIndex: 0
    Accessible.role: Accessible.List
    Accessible.name: sweep.title
    T.ScrollBar.vertical: ThinScrollBar {}
    removeDisplaced: Transition {
        NumberAnimation {
            property: "y"
            duration: Theme.rowMoveTime
        }
    }

    // Puts the focus on the current row, with the ring if the keyboard is at work.
    function takeFocus(byKey: bool) {
        pointed = !byKey
        forceActiveFocus(Qt.OtherFocusReason)
    }

    function show(row: int) {
        point(row)
        positionViewAtIndex(row, ListView.Contain)
    }

    function point(row: int) {
        pointed = true
        currentIndex = row
        forceActiveFocus(Qt.MouseFocusReason)
    }

    function step(rows: int) {
        currentIndex = Math.max(0, Math.min(count - 1, currentIndex + rows))
    }

    // Stays where it was among the rows that stayed, however many went.
    function followRows() {
        forceLayout()
        const row = Math.max(0, Math.min(count - 1, sweep.rowAfterReplacement(currentIndex)))
        if (row === currentIndex)
            return
        currentIndex = row
        positionViewAtIndex(row, ListView.Contain)
    }

    Component.onCompleted: shownPile = sweep.pile
    onContentYChanged: if (shownPile === sweep.pile) places[shownPile] = contentY
    Connections {
        target: list.sweep

        function onPileChanged() {
            if (list.shownPile === list.sweep.pile) {
                list.followRows()
                return
            }
            list.shownPile = list.sweep.pile
            list.forceLayout()
            list.contentY = Math.max(0, Math.min(list.contentHeight - list.height, list.places[list.shownPile] ?? 0))
            list.currentIndex = 0
        }
    }
    onActiveFocusChanged: if (!activeFocus) pointed = false
    Keys.onPressed: event => {
        pointed = false
        if (event.key === Qt.Key_Home)
            step(-count)
        else if (event.key === Qt.Key_End)
            step(count)
        else if (event.key === Qt.Key_PageUp)
            step(-pageRows)
        else if (event.key === Qt.Key_PageDown)
            step(pageRows)
        else if (event.key === Qt.Key_Space)
            sweep.toggle(currentIndex)
        else
            return
        event.accepted = true
    }
    delegate: SweepRow {
        x: list.frame.margin
        width: list.frame.column
        height: list.rowHeight
        narrow: list.frame.narrow
        total: list.count
        ring: ListView.isCurrentItem && list.activeFocus && !list.pointed
        onTurned: {
            list.point(index)
            list.sweep.toggle(index)
        }
        onPointed: list.point(index)
        onHoverChanged: inside => {
            if (inside)
                list.hoveredRow = index
            else if (list.hoveredRow === index)
                list.hoveredRow = -1
        }
    }
}
