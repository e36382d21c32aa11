// A key as it stands on the keyboard.
import QtQuick
import Nookwise

Rectangle {
    required property string text

    implicitWidth: Math.ceil(label.implicitWidth) + 2 * 7
    implicitHeight: 20
    radius: Theme.radiusTag
    color: Theme.card
    border.width: Theme.hairline
    border.color: Theme.lineStrong

    Label {
        id: label

        anchors.centerIn: parent
        look: Theme.micro
        color: Theme.ink3
        text: parent.text
    }
}
