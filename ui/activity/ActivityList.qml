// The changes, newest first, below the figures. Arrows move from change to
// change, Space puts back the one they stand on.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

ListView {
    id: list

    required property Frame frame
    required property ActivityModel activity
    required property DiskModel disk

    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false
    readonly property int pageRows: Math.max(1, Math.floor(height / 64) - 1)

    clip: true
    topMargin: figures.height
    bottomMargin: Theme.space6
    model: activity.rows
    reuseItems: true
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    currentIndex: 0
    Accessible.role: Accessible.List
    Accessible.name: "Activity"
    T.ScrollBar.vertical: ThinScrollBar {}

    // A list takes its margins for no part of its beginning and end.
    function showBeginning() {
        contentY = originY - topMargin
    }

    function showEnd() {
        positionViewAtEnd()
        if (!atYEnd)
            contentY += bottomMargin
    }

    function step(rows: int) {
        currentIndex = Math.max(0, Math.min(count - 1, currentIndex + rows))
        if (currentIndex === 0)
            showBeginning()
        else if (currentIndex === count - 1)
            showEnd()
        else
            positionViewAtIndex(currentIndex, ListView.Contain)
    }

    function point(row: int) {
        pointed = true
        // What is half in view stays so, under the pointer.
        const place = contentY
        currentIndex = row
        contentY = place
        forceActiveFocus(Qt.MouseFocusReason)
    }

    Component.onCompleted: showBeginning()
    // The figures stay in view until somebody scrolls.
    onTopMarginChanged: if (contentY <= originY) showBeginning()
    onActiveFocusChanged: {
        if (!activeFocus)
            pointed = false
        else if (!pointed)
            step(0)
    }
    Keys.onPressed: event => {
        pointed = false
        if (event.key === Qt.Key_Up)
            step(-1)
        else if (event.key === Qt.Key_Down)
            step(1)
        else if (event.key === Qt.Key_PageUp)
            step(-pageRows)
        else if (event.key === Qt.Key_PageDown)
            step(pageRows)
        else if (event.key === Qt.Key_Home)
            step(-count)
        else if (event.key === Qt.Key_End)
            step(count)
        else if (event.key === Qt.Key_Space || event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            activity.putBack(currentIndex)
        else
            return
        event.accepted = true
    }
    ActivityFigures {
        id: figures

        parent: list.contentItem
        x: list.frame.margin
        y: list.originY - height
        width: list.frame.column
        height: implicitHeight
        frame: list.frame
        activity: list.activity
        disk: list.disk
    }
    delegate: ActivityRow {
        x: list.frame.margin
        width: list.frame.column
        marked: ListView.isCurrentItem && list.activeFocus && !list.pointed
        onPointed: list.point(index)
        onPutBack: {
            list.point(index)
            list.activity.putBack(index)
        }
    }
}
