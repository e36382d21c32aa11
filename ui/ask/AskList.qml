// The files that answer the question.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

ListView {
    id: list

    required property Frame frame
    required property AskModel ask

    readonly property int rowHeight: frame.narrow ? 96 : 78
    readonly property int pageRows: Math.max(1, Math.floor(height / rowHeight) - 1)
    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false

    clip: true
    model: ask.rows
    reuseItems: true
    // Rows that are made ahead are still in the making when the answers change under them.
    cacheBuffer: 0
    boundsBehavior: Flickable.StopAtBounds
    bottomMargin: Theme.space4
    activeFocusOnTab: true
    highlightFollowsCurrentItem: false
    Accessible.role: Accessible.List
    Accessible.name: ask.countText
    T.ScrollBar.vertical: ThinScrollBar {}

    function showSelected() {
        if (ask.selectedRow < 0)
            return
        currentIndex = ask.selectedRow
        positionViewAtIndex(currentIndex, ListView.Contain)
    }

    function point(row: int) {
        pointed = true
        forceActiveFocus(Qt.MouseFocusReason)
        ask.select(row)
    }

    // Keys that move the selection, pressed here or where the question is typed.
    function work(event: var) {
        pointed = false
        const row = ask.selectedRow
        // Home and End belong to the question while it is typed.
        const here = activeFocus
        if (event.modifiers & (Qt.ShiftModifier | Qt.ControlModifier | Qt.AltModifier))
            return
        if (event.key === Qt.Key_Down)
            ask.select(row + 1)
        else if (event.key === Qt.Key_Up)
            ask.select(row - 1)
        else if (event.key === Qt.Key_PageDown)
            ask.select(row + pageRows)
        else if (event.key === Qt.Key_PageUp)
            ask.select(row - pageRows)
        else if (event.key === Qt.Key_Home && here)
            ask.select(0)
        else if (event.key === Qt.Key_End && here)
            ask.select(count - 1)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            openSelected(event.isAutoRepeat)
        else
            return
        event.accepted = true
    }

    function openSelected(again: bool) {
        if (!again)
            ask.selectedFile.open()
    }

    Component.onCompleted: showSelected()
    onActiveFocusChanged: if (!activeFocus) pointed = false
    Connections {
        target: list.ask

        function onSelected() {
            list.showSelected()
        }
    }
    Keys.onPressed: event => work(event)
    delegate: AskRow {
        x: list.frame.margin - Theme.space3
        width: list.width - x - Theme.space4
        height: list.rowHeight
        narrow: list.frame.narrow
        total: list.count
        ask: list.ask
        chosen: index === list.ask.selectedRow
        ring: chosen && list.activeFocus && !list.pointed
        onPointed: list.point(index)
        onOpened: list.ask.selectedFile.open()
    }
}
