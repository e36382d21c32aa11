// What a pane's folder holds.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

FocusScope {
    id: list

    required property Frame frame
    required property PaneModel pane
    // The folder row that what is dragged would be put into, or -1.
    required property int target

    readonly property int rowHeight: 40
    readonly property int pageRows: Math.max(1, Math.floor(height / rowHeight) - 1)
    // Where the first row is.
    readonly property real rowsTop: rows.originY - rows.contentY
    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false

    signal dragStarted
    signal menuAsked(x: real, y: real)
    signal otherSideAsked(key: int)

    function takeFocus(reason: int, byPointer: bool) {
        forceActiveFocus(reason)
        pointed = byPointer
    }

    function rowAt(y: real): int {
        const row = Math.floor((y - rowsTop) / rowHeight)
        return row < rows.count ? row : -1
    }

    function scrollBy(distance: real) {
        const end = Math.max(rows.originY - rows.topMargin, rows.originY + rows.contentHeight + rows.bottomMargin - rows.height)
        rows.contentY = Math.max(rows.originY - rows.topMargin, Math.min(end, rows.contentY + distance))
    }

    function showCurrent() {
        if (pane.currentRow >= 0)
            rows.positionViewAtIndex(pane.currentRow, ListView.Contain)
    }

    function askForMenu() {
        showCurrent()
        if (pane.currentRow >= 0)
            pane.pressForMenu(pane.currentRow)
        const below = rowsTop + (pane.currentRow + 1) * rowHeight - Theme.space2
        menuAsked(Theme.space8, Math.max(0, below))
    }

    function step(event: var): bool {
        const steps = new Map([[Qt.Key_Up, PaneModel.Previous], [Qt.Key_Down, PaneModel.Next], [Qt.Key_PageUp, PaneModel.PageUp], [Qt.Key_PageDown, PaneModel.PageDown], [Qt.Key_Home, PaneModel.First], [Qt.Key_End, PaneModel.Last]])
        if (!steps.has(event.key) || event.modifiers & (Qt.AltModifier | Qt.MetaModifier))
            return false
        pane.step(steps.get(event.key), event.modifiers, pageRows)
        showCurrent()
        return true
    }

    function work(event: var): bool {
        const modifiers = event.modifiers & ~Qt.KeypadModifier
        const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
        if (step(event))
            return true
        if (event.key === Qt.Key_Space && modifiers === Qt.ControlModifier)
            pane.toggleCurrent()
        else if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && modifiers === Qt.ShiftModifier)
            askForMenu()
        else if (modifiers & ~Qt.ShiftModifier)
            return false
        else if (enter && !event.isAutoRepeat)
            pane.open(pane.currentRow)
        else if (event.key === Qt.Key_Backspace && !event.isAutoRepeat)
            pane.goUp()
        else if (event.key === Qt.Key_Left || event.key === Qt.Key_Right)
            otherSideAsked(event.key)
        else if (event.text !== "" && pane.type(event.text))
            showCurrent()
        else if (event.key === Qt.Key_Space)
            pane.toggleCurrent()
        else
            return false
        return true
    }

    activeFocusOnTab: true
    onActiveFocusChanged: {
        if (activeFocus)
            pane.activate()
        else
            pointed = false
    }
    Keys.onPressed: event => {
        pointed = false
        event.accepted = work(event)
    }
    Connections {
        target: list.pane

        function onShownAnew() {
            rows.forceLayout()
            rows.contentY = rows.originY - rows.topMargin
            list.showCurrent()
        }
    }
    ListView {
        id: rows

        anchors.fill: parent
        clip: true
        focus: true
        model: list.pane.rows
        reuseItems: true
        // Rows that are made ahead are still in the making when the folder changes under them.
        cacheBuffer: 0
        topMargin: 6
        bottomMargin: 6
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: list.pane.spoken
        T.ScrollBar.vertical: bar

        delegate: PaneRow {
            width: rows.width
            height: list.rowHeight
            narrow: list.frame.narrow
            total: rows.count
            ring: index === list.pane.currentRow && list.activeFocus && !list.pointed
            target: index === list.target
            onChosen: {
                list.pane.press(index, Qt.NoModifier)
                list.pane.release()
            }
        }
    }
    MouseArea {
        id: pointer

        // Where a press was that may become a drag, and on which row.
        property point from
        property int row: -1

        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        preventStealing: true
        onPressed: mouse => {
            list.pointed = true
            list.forceActiveFocus(Qt.MouseFocusReason)
            from = Qt.point(mouse.x, mouse.y)
            row = list.rowAt(mouse.y)
            if (mouse.button === Qt.LeftButton) {
                list.pane.press(row, mouse.modifiers)
                return
            }
            list.pane.pressForMenu(row)
            row = -1
            list.menuAsked(mouse.x, mouse.y)
        }
        onPositionChanged: mouse => {
            const distance = Math.abs(mouse.x - from.x) + Math.abs(mouse.y - from.y)
            if (row < 0 || distance < Application.styleHints.startDragDistance)
                return
            if (list.pane.beginDrag(row))
                list.dragStarted()
            row = -1
        }
        onReleased: list.pane.release()
        onDoubleClicked: mouse => {
            if (mouse.button === Qt.LeftButton && !(mouse.modifiers & (Qt.ControlModifier | Qt.ShiftModifier)))
                list.pane.open(list.rowAt(mouse.y))
        }
    }
    ThinScrollBar {
        id: bar

        anchors.right: parent.right
        height: parent.height
        orientation: Qt.Vertical
    }
    FocusRing {
        anchors.margins: Theme.ringGap
        around: Theme.radiusButton - 2 * Theme.ringGap
        visible: list.activeFocus && !list.pointed && list.pane.currentRow < 0
    }
}
