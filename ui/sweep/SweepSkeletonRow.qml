// The place of a file that is not known yet.
import QtQuick
import Nookwise

Item {
    id: row

    required property int nameWidth
    required property int reasonWidth

    Rectangle {
        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: 20
        height: 20
        radius: Theme.radiusCheck
        color: Theme.card
        border.width: Theme.hairline
        border.color: Theme.lineStrong
    }
    Skeleton {
        x: 44
        anchors.verticalCenter: parent.verticalCenter
        width: 32
        height: 40
    }
    Column {
        x: 88
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        Skeleton {
            width: row.nameWidth
            height: 12
        }
        Skeleton {
            width: row.reasonWidth
            height: 10
            color: Theme.skeleton2
        }
    }
    Skeleton {
        anchors.right: size.left
        anchors.rightMargin: 76
        anchors.verticalCenter: parent.verticalCenter
        width: 110
        height: 10
        color: Theme.skeleton2
    }
    Skeleton {
        id: size

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: 56
        height: 12
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
}
