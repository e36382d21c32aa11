// What is free on the start-up volume.
import QtQuick
import Nookwise

Card {
    id: tile

    required property Frame frame
    required property DiskModel disk
    // With the volume drawn.
    required property bool tall

    implicitHeight: tall ? 124 : 100

    Label {
        id: caption

        x: Theme.space5 + Theme.hairline
        y: 19
        look: Theme.small
        color: Theme.ink2
        text: "Free on this Mac"
    }
    Label {
        id: figure

        x: caption.x
        y: 41
        look: tile.frame.narrow ? Theme.heroNarrow : Theme.hero
        text: tile.disk.freeText
        Accessible.ignored: false
        Accessible.role: Accessible.StaticText
        Accessible.name: caption.text + ", " + text
    }
    Label {
        anchors.right: parent.right
        anchors.rightMargin: caption.x
        y: 55
        visible: tile.tall && tile.disk.known
        look: Theme.small
        color: Theme.ink2
        text: "of " + tile.disk.totalText
    }
    Rectangle {
        x: caption.x
        y: 91
        width: parent.width - 2 * x
        height: 14
        radius: Theme.radiusCheck
        visible: tile.tall && tile.disk.known
        color: Theme.free
        border.width: Theme.hairline
        border.color: Theme.lineStrong
        Accessible.role: Accessible.ProgressBar
        Accessible.name: tile.disk.freeText + " free of " + tile.disk.totalText

        Rectangle {
            width: Math.round(parent.width * (tile.disk.restFraction + tile.disk.comesBackFraction))
            height: parent.height
            radius: Theme.radiusCheck
            color: Theme.used

            // Only the outer end is round.
            Rectangle {
                anchors.right: parent.right
                width: Math.min(parent.width / 2, parent.radius)
                height: parent.height
                color: parent.color
            }
        }
    }
}
