// The message at the foot of the window. Never takes the focus by itself.
import QtQuick
import Nookwise

FocusScope {
    id: view

    required property ToastModel toast
    // The most that the content leaves.
    required property int room

    readonly property string message: toast.message
    property int rise: 0

    width: Math.min(row.width + Theme.space4 + Theme.space2, room)
    height: 52
    visible: opacity > 0
    opacity: 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: toast.message
    Keys.onEscapePressed: toast.close()

    onMessageChanged: unmeant.start()

    // It goes with the focus in it.
    signal focusLeft

    function takeFocus() {
        const first = undo.visible ? undo : show.visible ? show : close
        first.forceActiveFocus(Qt.TabFocusReason)
    }

    states: State {
        name: "shown"
        when: view.toast.shown

        PropertyChanges {
            view.opacity: 1
        }
    }
    transitions: [
        Transition {
            to: "shown"

            NumberAnimation {
                property: "opacity"
                duration: Theme.toastTime
            }
            NumberAnimation {
                target: view
                property: "rise"
                from: 16
                to: 0
                duration: Theme.toastTime
                easing.type: Easing.OutCubic
            }
        },
        Transition {
            from: "shown"

            NumberAnimation {
                property: "opacity"
                duration: Theme.toastOutTime
            }
        }
    ]

    Connections {
        target: view.toast

        function onChanged() {
            if (!view.toast.shown && view.activeFocus)
                view.focusLeft()
        }
    }

    Shadow {}
    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.dark

        // Nothing beneath is pressed through it.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
        }
    }
    Row {
        id: row

        x: Theme.space4
        height: parent.height

        Item {
            id: head

            visible: view.toast.moving
            width: 20 + Theme.space3
            height: parent.height

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                glyph: "refresh"
                color: Theme.darkInk

                RotationAnimation on rotation {
                    running: view.toast.moving && view.visible && !Theme.reducedMotion
                    from: 0
                    to: 360
                    duration: Theme.turnTime
                    loops: Animation.Infinite
                }
            }
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, view.room - row.x - Theme.space2 - tail.width - (head.visible ? head.width : 0))
            weight: Font.Medium
            color: Theme.darkInk
            text: view.toast.message
            elide: Text.ElideRight
        }
        Row {
            id: tail

            height: parent.height

            Item {
                width: undo.visible ? Theme.space5 + Theme.hairline + Theme.space2 : Theme.space3
                height: parent.height

                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: undo.visible
                    x: Theme.space5
                    width: Theme.hairline
                    height: 24
                    color: Theme.darkLine
                }
            }
            ToastButton {
                id: undo

                anchors.verticalCenter: parent.verticalCenter
                visible: view.toast.canUndo
                glyph: "undo"
                ink: Theme.darkAccent
                text: "Undo"
                onClicked: view.toast.undo()
            }
            ToastButton {
                id: show

                anchors.verticalCenter: parent.verticalCenter
                visible: view.toast.canShowInTrash
                text: "Show in Trash"
                onClicked: view.toast.showInTrash()
            }
            ToastButton {
                id: close

                anchors.verticalCenter: parent.verticalCenter
                iconOnly: true
                glyph: "close"
                text: "Close"
                onClicked: view.toast.close()

                PressGuard {
                    id: unmeant
                }
            }
        }
    }
}
