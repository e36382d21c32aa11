// A button that is an icon; its name is spoken and shown as a tip.
import QtQuick
import Nookwise

PressButton {
    id: button

    required property string glyph
    property int size: 28

    implicitWidth: size
    implicitHeight: size
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: button.hovered || button.down ? Theme.hoverSidebar : "transparent"

        Icon {
            anchors.centerIn: parent
            glyph: button.glyph
            size: 20
            color: Theme.ink3
        }
        FocusRing {
            visible: button.visualFocus
        }
    }
    Tip {
        text: button.text
        visible: button.hovered || button.visualFocus
    }
}
