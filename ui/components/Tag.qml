// A word on a small coloured ground.
import QtQuick
import Nookwise

Rectangle {
    id: tag

    required property string text
    property string glyph: ""
    property color inkColor: Theme.ink2

    implicitWidth: Math.ceil(row.implicitWidth) + 2 * 6
    implicitHeight: 20
    radius: Theme.radiusTag
    color: Theme.sunken

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.space1

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: tag.glyph !== ""
            glyph: tag.glyph === "" ? "check" : tag.glyph
            size: 14
            color: tag.inkColor
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.micro
            text: tag.text
            color: tag.inkColor
        }
    }
}
