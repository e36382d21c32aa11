// A button on the dark of a toast.
import QtQuick
import Nookwise

PressButton {
    id: button

    property string glyph: ""
    property color ink: Theme.darkInk
    property bool iconOnly: false

    implicitWidth: iconOnly ? 32 : Math.ceil(content.implicitWidth) + 2 * 14
    implicitHeight: 32
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: button.hovered || button.down ? Theme.darkLine : "transparent"

        FocusRing {
            border.color: Theme.darkAccent
            visible: button.visualFocus
        }
    }
    Row {
        id: content

        anchors.centerIn: parent
        spacing: Theme.space2

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: button.glyph !== ""
            glyph: button.glyph === "" ? "close" : button.glyph
            size: 18
            color: button.ink
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            visible: !button.iconOnly
            look: Theme.small
            weight: Font.DemiBold
            text: button.text
            color: button.ink
        }
    }
}
