// What was read inside a file, to be read and copied from.
import QtQuick
import QtQuick.Templates as T
import Nookwise

Flickable {
    id: view

    required property AnswerModel file
    // The width of a line; what is left beside it is the scroll bar's.
    required property real room
    // What the focus ring takes to the left of the lines.
    readonly property real inset: Theme.ringGap + Theme.strongLine

    clip: true
    contentWidth: width
    contentHeight: text.height
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: ThinScrollBar {}

    function scrollTo(rectangle: rect) {
        const top = Math.min(contentY, rectangle.y)
        contentY = Math.max(top, rectangle.y + rectangle.height - height)
    }

    function show() {
        text.text = Theme.markStyle(Theme.small) + file.text
        showMatch()
    }

    // Begins where the words are.
    function showMatch() {
        const match = file.firstMatch < 0 ? Qt.rect(0, 0, 0, 0) : text.positionToRectangle(file.firstMatch)
        contentY = Math.max(0, Math.min(contentHeight - height, match.y - height / 3))
    }

    Component.onCompleted: show()
    onHeightChanged: returnToBounds()

    Connections {
        target: view.file

        function onTextChanged() {
            later.restart()
        }
    }
    // A long text takes a few frames to lay out, which nobody wants to wait for while typing.
    Timer {
        id: later

        interval: view.file.text.length > 4000 ? 150 : 0
        onTriggered: view.show()
    }

    T.TextArea {
        id: text

        width: view.inset + view.room
        leftPadding: view.inset
        height: Math.max(contentHeight + topPadding + bottomPadding, view.height)
        topPadding: Theme.space3
        bottomPadding: Theme.space3
        readOnly: true
        selectByMouse: true
        textFormat: TextEdit.RichText
        color: Theme.ink2
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
        font.family: Theme.small.family
        font.pixelSize: Theme.small.size
        Accessible.role: Accessible.StaticText
        Accessible.readOnly: true
        Accessible.name: "Text inside " + view.file.name
        onCursorRectangleChanged: if (activeFocus) view.scrollTo(cursorRectangle)
    }
    FocusRing {
        parent: view
        anchors.margins: 0
        visible: text.activeFocus && (text.focusReason === Qt.TabFocusReason || text.focusReason === Qt.BacktabFocusReason)
    }
}
