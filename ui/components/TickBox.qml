// A check box without a label.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.CheckBox {
    id: box

    property int boxSize: 20

    implicitWidth: 40
    implicitHeight: 40
    Accessible.role: Accessible.CheckBox

    Rectangle {
        anchors.centerIn: parent
        width: box.boxSize
        height: box.boxSize
        radius: Theme.radiusCheck
        color: box.checkState === Qt.Unchecked ? Theme.card : Theme.accent
        border.width: box.checkState === Qt.Unchecked ? Theme.hairline : 0
        border.color: Theme.box

        Icon {
            anchors.centerIn: parent
            visible: box.checkState !== Qt.Unchecked
            glyph: box.checkState === Qt.PartiallyChecked ? "dash" : "tick"
            color: Theme.accentInk
        }
        FocusRing {
            around: Theme.radiusCheck
            visible: box.visualFocus
        }
    }
}
