// The start-up volume in one line.
import QtQuick
import Nookwise

Item {
    id: footer

    required property DiskModel disk

    implicitHeight: 56

    Rectangle {
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.space5
        width: parent.width - 2 * Theme.space5
        spacing: 6
        visible: footer.disk.known
        Accessible.role: Accessible.ProgressBar
        Accessible.name: footer.disk.freeText + " free of " + footer.disk.totalText

        Label {
            width: parent.width
            look: Theme.caption
            weight: Font.Medium
            color: Theme.ink2
            text: footer.disk.freeText + " free"
            elide: Text.ElideRight
        }
        Rectangle {
            id: meter

            width: parent.width
            height: 4
            radius: 2
            color: Theme.meterTrack

            Rectangle {
                height: parent.height
                radius: 2
                width: Math.round(parent.width * (footer.disk.restFraction + footer.disk.comesBackFraction))
                color: Theme.meterUsed
            }
            Rectangle {
                height: parent.height
                x: Math.round(parent.width * footer.disk.restFraction)
                width: Math.round(parent.width * footer.disk.comesBackFraction)
                color: Theme.accent
            }
        }
    }
}
