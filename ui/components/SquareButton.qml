// A framed button that is an icon; its name is spoken and shown as a tip.
import QtQuick
import Nookwise

PressButton {
    id: button

    required property string glyph
    property int size: 40
    property color inkColor: enabled ? Theme.ink : Theme.disabledText

    implicitWidth: size
    implicitHeight: size
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: !button.enabled ? Theme.disabledFill : button.down ? Theme.hoverSidebar : button.hovered ? Theme.hover : Theme.card
        border.width: Theme.hairline
        border.color: button.enabled ? Theme.lineStrong : Theme.disabledLine

        Icon {
            anchors.centerIn: parent
            glyph: button.glyph
            color: button.inkColor
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
