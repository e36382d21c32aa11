// A sentence that puts the user at ease.
import QtQuick
import Nookwise

Row {
    id: reassurance

    required property string text
    property int iconSize: 20
    property TextStyle look: Theme.small
    property color color: Theme.ink2

    spacing: Math.round(iconSize * 0.4)
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        glyph: "shield"
        size: reassurance.iconSize
        color: reassurance.color
    }
    Label {
        anchors.verticalCenter: parent.verticalCenter
        look: reassurance.look
        text: reassurance.text
        color: reassurance.color
    }
}
