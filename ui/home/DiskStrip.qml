// The start-up volume while nothing is known of what could come back.
import QtQuick
import Nookwise

Card {
    id: card

    required property DiskModel disk

    implicitHeight: 54
    Accessible.role: Accessible.ProgressBar
    Accessible.name: disk.freeText + " free of " + disk.totalText

    Row {
        id: figures

        x: Theme.space5
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space1

        Label {
            look: Theme.subhead
            text: card.disk.freeText + " free"
        }
        Label {
            look: Theme.subhead
            weight: Font.Normal
            color: Theme.ink2
            text: "of " + card.disk.totalText
        }
    }
    Rectangle {
        anchors.left: figures.right
        anchors.leftMargin: Theme.space6
        anchors.right: parent.right
        anchors.rightMargin: Theme.space5
        anchors.verticalCenter: parent.verticalCenter
        height: 16
        radius: Theme.radiusCheck
        color: Theme.free
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Rectangle {
            width: Math.round(parent.width * (card.disk.restFraction + card.disk.comesBackFraction))
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
