// A note of something that will pass.
import QtQuick
import Nookwise

Rectangle {
    id: note

    required property string glyph
    required property string text

    implicitWidth: Math.ceil(row.implicitWidth) + 2 * 11 + 3
    implicitHeight: 32
    radius: height / 2
    color: Theme.honeyWash
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: row

        x: 11
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            glyph: note.glyph
            size: 18
            color: Theme.honeyText
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            color: Theme.honeyText
            text: note.text
        }
    }
}
