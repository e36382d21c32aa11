// The files with their new names.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

ListView {
    id: list

    required property Frame frame
    required property RenameModel rename

    readonly property int rowHeight: 58
    readonly property int pageRows: Math.max(1, Math.floor(height / rowHeight) - 1)
    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false

    clip: true
    model: rename.rows
    reuseItems: true
    // Rows that are made ahead are still in the making when the names change under them.
    cacheBuffer: 0
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    keyNavigationEnabled: true
    highlightMoveDuration: 0
    currentIndex: 0
    Accessible.role: Accessible.List
    Accessible.name: "New names"
    T.ScrollBar.vertical: ThinScrollBar {}

    // Puts the focus on the current row, with the ring if the keyboard is at work.
    function takeFocus(byKey: bool) {
        pointed = !byKey
        forceActiveFocus(Qt.OtherFocusReason)
    }

    function point(row: int) {
        pointed = true
        currentIndex = row
        forceActiveFocus(Qt.MouseFocusReason)
    }

    function step(rows: int) {
        currentIndex = Math.max(0, Math.min(count - 1, currentIndex + rows))
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
        else if (event.key !== Qt.Key_Space)
            return
        else if (!event.isAutoRepeat)
            rename.turn(currentIndex)
        event.accepted = true
    }
    delegate: RenameRow {
        x: list.frame.margin
        width: list.frame.column
        height: list.rowHeight
        narrow: list.frame.narrow
        total: list.count
        ring: ListView.isCurrentItem && list.activeFocus && !list.pointed
        onTurned: {
            list.point(index)
            list.rename.turn(index)
        }
        onPointed: list.point(index)
    }
}
