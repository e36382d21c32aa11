// A switch in a box of its own, which turns it wherever it is pressed.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.Switch {
    id: box

    implicitHeight: 50
    Accessible.role: Accessible.CheckBox
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.paper
        border.width: Theme.hairline
        border.color: Theme.line
    }
    Label {
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.space4 + 1
        width: track.x - x - Theme.space3
        weight: Font.Medium
        text: box.text
        elide: Text.ElideRight
    }
    Rectangle {
        id: track

        anchors.verticalCenter: parent.verticalCenter
        x: parent.width - width - Theme.space4 - 1
        width: 40
        height: 24
        radius: height / 2
        color: box.checked ? Theme.accent : Theme.card
        border.width: box.checked ? 0 : Theme.hairline
        border.color: Theme.box

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            x: box.checked ? parent.width - width - 4 : 4
            width: 16
            height: 16
            radius: 8
            color: box.checked ? Theme.accentInk : Theme.box
        }
        FocusRing {
            around: parent.radius
            visible: box.visualFocus
        }
    }
}
