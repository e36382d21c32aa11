// A framed button that is an icon; its name is spoken and shown as a tip.
import QtQuick
import Nookwise

PressButton {
    id: button

    required property string glyph
    property int size: 40

    implicitWidth: size
    implicitHeight: size
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: button.down ? Theme.hoverSidebar : button.hovered ? Theme.hover : Theme.card
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Icon {
            anchors.centerIn: parent
            glyph: button.glyph
            color: Theme.ink
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
