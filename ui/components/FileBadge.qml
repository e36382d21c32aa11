// A file drawn by its kind.
import QtQuick
import Nookwise

Item {
    id: badge

    required property string group
    required property string label

    implicitWidth: 32
    implicitHeight: 40
    Accessible.ignored: true

    Art {
        anchors.fill: parent
        drawing: "art/file-" + badge.group
    }
    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(parent.height * 0.67 - height / 2)
        look: Theme.badge
        font.pixelSize: Math.max(1, Math.round(Theme.badge.size * badge.height / 40))
        text: badge.label
        color: Palettes.kindLabel(badge.group)
    }
}
