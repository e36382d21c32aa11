// Groups of copies, one card each. Arrows move from copy to copy, Space keeps the one they stand on.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

ListView {
    id: list

    required property Frame frame
    required property DuplicatesModel duplicates

    property int currentCopy: 0
    // The focus came from the mouse: no ring until a key is pressed.
    property bool pointed: false

    clip: true
    model: duplicates.rows
    reuseItems: true
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    Accessible.role: Accessible.List
    Accessible.name: duplicates.title
    T.ScrollBar.vertical: ThinScrollBar {}

    // To the nearest line of copies in that direction; headings hold none.
    function step(lines: int) {
        const direction = lines < 0 ? -1 : 1
        const target = Math.max(0, Math.min(count - 1, currentIndex + lines))
        for (let row = target; row >= 0 && row < count; row += direction) {
            currentIndex = row
            if (!(currentItem as DuplicateRow)?.heading)
                break
        }
        if ((currentItem as DuplicateRow)?.heading)
            currentIndex = Math.min(count - 1, currentIndex + 1)
        showCurrent()
        stepCopy(0)
    }

    // With the heading above it, where there is room for both.
    function showCurrent() {
        if (currentIndex <= 1) {
            positionViewAtBeginning()
        } else {
            positionViewAtIndex(currentIndex - 1, ListView.Contain)
            positionViewAtIndex(currentIndex, ListView.Contain)
        }
    }

    function stepCopy(copies: int) {
        const last = ((currentItem as DuplicateRow)?.copies.length ?? 1) - 1
        currentCopy = Math.max(0, Math.min(last, currentCopy + copies))
    }

    function point(row: int, copy: int) {
        pointed = true
        // What is half in view stays so, under the pointer.
        const place = contentY
        currentIndex = row
        contentY = place
        currentCopy = copy
        forceActiveFocus(Qt.MouseFocusReason)
    }

    // The next group's button slides to where this one's was.
    PressGuard {
        id: unmeant

        parent: list
        z: 1
    }

    // Lines came or went: stay on one that holds copies.
    onCountChanged: if (activeFocus && count > 0) step(0)
    onActiveFocusChanged: {
        if (!activeFocus)
            pointed = false
        else if (!pointed)
            step(0)
    }
    Keys.onPressed: event => {
        pointed = false
        const page = Math.max(1, Math.floor(height / 96) - 1)
        if (event.key === Qt.Key_Up)
            step(-1)
        else if (event.key === Qt.Key_Down)
            step(1)
        else if (event.key === Qt.Key_Left)
            stepCopy(-1)
        else if (event.key === Qt.Key_Right)
            stepCopy(1)
        else if (event.key === Qt.Key_PageUp)
            step(-page)
        else if (event.key === Qt.Key_PageDown)
            step(page)
        else if (event.key === Qt.Key_Home)
            step(-count)
        else if (event.key === Qt.Key_End)
            step(count)
        else if (event.key === Qt.Key_Space || event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            duplicates.keep(currentIndex, currentCopy)
        else if (event.key !== Qt.Key_Delete)
            return
        else if (!event.isAutoRepeat)
            duplicates.trashExtras(currentIndex)
        event.accepted = true
    }
    delegate: DuplicateRow {
        x: list.frame.margin
        width: list.frame.column
        columns: list.duplicates.columns
        onChosen: copy => {
            list.point(index, copy)
            list.duplicates.keep(index, copy)
        }
        onTrashed: {
            unmeant.start()
            list.duplicates.trashExtras(index)
        }
        markedCopy: ListView.isCurrentItem && list.activeFocus && !list.pointed ? list.currentCopy : -1
    }
}
