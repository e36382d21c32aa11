// A button that is an icon; its name is spoken and shown as a tip.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.Button {
    id: button

    required property string glyph
    property int size: 28

    implicitWidth: size
    implicitHeight: size
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

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
