// The box of a check box.
import QtQuick
import Nookwise

Rectangle {
    id: mark

    required property int checkState
    property bool ring: false

    implicitWidth: 20
    implicitHeight: 20
    radius: Theme.radiusCheck
    color: checkState === Qt.Unchecked ? Theme.card : Theme.accent
    border.width: checkState === Qt.Unchecked ? Theme.hairline : 0
    border.color: Theme.box

    Icon {
        anchors.centerIn: parent
        visible: mark.checkState !== Qt.Unchecked
        glyph: mark.checkState === Qt.PartiallyChecked ? "dash" : "tick"
        color: Theme.accentInk
    }
    FocusRing {
        around: mark.radius
        visible: mark.ring
    }
}
