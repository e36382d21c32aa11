// Asks before files go to the Trash. Nothing behind it can be reached meanwhile.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.Popup {
    id: sheet

    required property TrashSheetModel request

    // What had the focus before.
    property Item before: null
    // That was shown with a ring.
    property bool ringBefore: false
    // The press that opens the sheet may be the first of a double click.
    property bool settled: false
    property int rise: 0

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: (parent ? Math.round(parent.height * 0.25) : 0) + rise
    width: 480
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Theme.space7 + 1
    topPadding: Theme.space7
    bottomPadding: Theme.space6
    modal: true
    focus: true
    closePolicy: settled ? T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside : T.Popup.CloseOnEscape

    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.scrimTime
            }
        }
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.sheetTime
        }
        NumberAnimation {
            property: "rise"
            from: 12
            to: 0
            duration: Theme.sheetTime
            easing.type: Easing.OutCubic
        }
    }

    function answer() {
        before = sheet.parent?.Window.activeFocusItem ?? null
        ringBefore = (before as T.Control)?.visualFocus ?? false
        settled = false
        open()
        const question = contentItem as ConfirmQuestion
        question.takeFocus()
    }

    function focusBefore() {
        before?.forceActiveFocus(Qt.PopupFocusReason)
        const control = before as T.Control
        if (control && ringBefore)
            control.focusReason = Qt.TabFocusReason
        before = null
    }

    onOpened: second.restart()
    onClosed: {
        second.stop()
        if (request.open)
            request.cancel()
        focusBefore()
    }
    SecondPress {
        id: second

        onTriggered: sheet.settled = true
    }
    Connections {
        target: sheet.request

        function onChanged() {
            if (sheet.request.open === sheet.visible)
                return
            if (sheet.request.open)
                sheet.answer()
            else
                sheet.close()
        }
    }

    background: Rectangle {
        radius: Theme.radiusSheet
        color: Theme.card
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Shadow {
            z: -1
        }
    }
    contentItem: ConfirmQuestion {
        request: sheet.request
    }
}
