// A choice that is on or off, with its words.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.CheckBox {
    id: chip

    implicitWidth: Math.ceil(content.implicitWidth) + leftPadding + rightPadding
    implicitHeight: 40
    leftPadding: 11
    rightPadding: 16
    spacing: 10
    Accessible.role: Accessible.CheckBox
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: chip.checked ? Theme.wash : chip.down ? Theme.hoverSidebar : chip.hovered ? Theme.hover : Theme.card
        border.width: Theme.hairline
        border.color: chip.checked ? Theme.accent : Theme.lineStrong

        FocusRing {
            around: parent.radius
            visible: chip.visualFocus
        }
    }
    Row {
        id: content

        x: chip.leftPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: chip.spacing

        TickMark {
            anchors.verticalCenter: parent.verticalCenter
            checkState: chip.checkState
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            weight: Font.Medium
            color: chip.checked ? Theme.accentPress : Theme.ink
            text: chip.text
        }
    }
}
