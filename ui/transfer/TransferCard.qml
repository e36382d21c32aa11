// How far a move or copy is that takes long, and a way to end it.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Card {
    id: card

    required property TransferModel transfer
    // The most that the content leaves.
    required property int room

    readonly property bool holdsFocus: cancel.activeFocus
    readonly property bool known: transfer.fraction >= 0

    // It goes with the focus in it.
    signal focusLeft

    function takeFocus() {
        cancel.forceActiveFocus(Qt.TabFocusReason)
    }

    visible: transfer.running
    width: Math.min(400, room)
    height: column.height + 2 * Theme.space4
    border.color: Theme.lineStrong
    Accessible.role: Accessible.ProgressBar
    Accessible.name: transfer.spokenText

    onVisibleChanged: if (visible)
        unmeant.start()

    Connections {
        target: card.transfer

        function onChanged() {
            if (!card.transfer.running && cancel.activeFocus)
                card.focusLeft()
        }
    }

    Shadow {
        z: -1
    }
    // Nothing beneath is pressed through it.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
    }
    Column {
        id: column

        x: Theme.space5
        y: Theme.space4
        width: parent.width - 2 * x
        spacing: Theme.space3

        Item {
            width: parent.width
            height: cancel.height

            Label {
                anchors.left: parent.left
                anchors.right: cancel.left
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                weight: Font.Medium
                text: card.transfer.text
                elide: Text.ElideRight
            }
            PushButton {
                id: cancel

                anchors.right: parent.right
                size: 32
                text: "Cancel"
                onClicked: card.transfer.cancel()

                PressGuard {
                    id: unmeant
                }
            }
        }
        ProgressLine {
            width: parent.width
            value: card.transfer.fraction
            still: true

            Rectangle {
                id: wanderer

                visible: !card.known
                width: Theme.reducedMotion ? parent.width : Math.round(parent.width / 4)
                height: parent.height
                radius: parent.radius
                color: Theme.accentPale

                NumberAnimation on x {
                    running: card.transfer.running && !card.known && !Theme.reducedMotion
                    from: 0
                    to: column.width - Math.round(column.width / 4)
                    duration: Theme.turnTime
                    loops: Animation.Infinite
                }
            }
        }
    }
}
