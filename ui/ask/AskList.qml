// The files that answer the question.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

ListView {
    id: list

    required property Frame frame
    required property AskModel ask
    required property FileMenuView menu

    readonly property int rowHeight: frame.narrow ? 96 : 78
    readonly property int pageRows: Math.max(1, Math.floor(height / rowHeight) - 1)
    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false
    // Whether the selected row is in sight, or was before the list got another size.
    property bool inSight: false
    property bool resizing: false
    // What stays in its place while the answers become others.
    property int keptRow: -1
    property real keptY: 0
    property bool keptAtBeginning: true

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

    // Where a row is below the list's upper edge.
    function rowY(row: int): real {
        return originY + row * rowHeight - contentY
    }

    function noteSight() {
        const y = rowY(ask.selectedRow)
        if (!resizing)
            inSight = ask.selectedRow >= 0 && y > -rowHeight && y < height
    }

    function noteEnd() {
        if (count > 0 && contentY + 3 * height > originY + contentHeight)
            ask.showMore()
    }

    function showSelected() {
        currentIndex = ask.selectedRow
        if (currentIndex >= 0)
            positionViewAtIndex(currentIndex, ListView.Contain)
        noteSight()
    }

    function choose(row: int) {
        ask.select(row)
        showSelected()
    }

    function point(row: int) {
        pointed = true
        forceActiveFocus(Qt.MouseFocusReason)
        choose(row)
    }

    function pointMenu(row: Item, index: int, x: real, y: real) {
        // The list may move under the pointer to show the whole row.
        const at = row.mapToItem(list, x, y)
        point(index)
        menu.openAt(list, at.x, at.y)
    }

    function openMenu() {
        showSelected()
        if (currentItem)
            menu.openBelow(currentItem)
    }

    function showBeginning() {
        forceLayout()
        positionViewAtBeginning()
        noteSight()
    }

    function notePlace() {
        noteSight()
        keptAtBeginning = contentY <= originY
        keptRow = inSight ? ask.selectedRow : Math.max(0, Math.floor((contentY - originY) / rowHeight))
        keptY = rowY(keptRow)
    }

    // Texts that are read, and time, change the answers: nobody is to lose their place for it.
    function keepPlace() {
        const row = ask.rowAfterReplacement(keptRow)
        if (row < 0 || (keptAtBeginning && ask.selectedRow === 0)) {
            showBeginning()
            return
        }
        forceLayout()
        if (rowY(row) !== keptY)
            positionViewAtIndex(row, ListView.Beginning)
        const place = Math.max(originY, Math.min(contentY + rowY(row) - keptY, originY + contentHeight + bottomMargin - height))
        if (place !== contentY)
            contentY = place
        noteSight()
    }

    function beginResize() {
        resizing = true
        resized.restart()
    }

    function endResize() {
        forceLayout()
        resizing = false
        if (inSight)
            showSelected()
        noteSight()
    }

    // Keys that move the selection, pressed here or where the question is typed.
    function work(event: var) {
        pointed = false
        const row = ask.selectedRow
        // Home and End belong to the question while it is typed.
        const here = activeFocus
        if (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier) {
            openMenu()
            event.accepted = true
        }
        if (event.modifiers & (Qt.ShiftModifier | Qt.ControlModifier | Qt.AltModifier))
            return
        if (event.key === Qt.Key_Down)
            choose(row + 1)
        else if (event.key === Qt.Key_Up)
            choose(row - 1)
        else if (event.key === Qt.Key_PageDown)
            choose(row + pageRows)
        else if (event.key === Qt.Key_PageUp)
            choose(row - pageRows)
        else if (event.key === Qt.Key_Home && here)
            choose(0)
        else if (event.key === Qt.Key_End && here)
            choose(count - 1)
        else if (event.key === Qt.Key_Delete && here)
            trashSelected(event.isAutoRepeat)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            openSelected(event.isAutoRepeat)
        else if (event.key === Qt.Key_Menu)
            openMenu()
        else
            return
        event.accepted = true
    }

    function trashSelected(again: bool) {
        if (!again)
            ask.menu.moveToTrash()
    }

    function openSelected(again: bool) {
        if (!again)
            ask.selectedFile.open()
    }

    Component.onCompleted: showSelected()
    onContentYChanged: {
        noteSight()
        noteEnd()
    }
    onHeightChanged: beginResize()
    onRowHeightChanged: beginResize()
    onActiveFocusChanged: if (!activeFocus) pointed = false
    // The new heights of rows and list come one after the other.
    Timer {
        id: resized

        interval: 0
        onTriggered: list.endResize()
    }
    Connections {
        target: list.ask

        function onSelected() {
            list.currentIndex = list.ask.selectedRow
        }

        function onAboutToAnswer() {
            list.notePlace()
        }

        function onAnswered() {
            list.keepPlace()
        }

        function onQuestionChanged() {
            list.showBeginning()
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
        onMenuAsked: (x, y) => list.pointMenu(this, index, x, y)
        onOpened: list.ask.selectedFile.open()
    }
}
