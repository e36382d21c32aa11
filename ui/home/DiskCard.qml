// The start-up volume, and what of it could come back.
import QtQuick
import Nookwise

Card {
    id: card

    required property Frame frame
    required property DiskModel disk
    required property HomeModel home

    implicitHeight: home.clean ? 266 : picture.y + picture.implicitHeight + Theme.space5 + 1

    Row {
        x: Theme.space5 + 1
        y: Theme.space4
        spacing: Theme.space1
        visible: card.disk.known

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
    Label {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space5 + 1
        y: Theme.space4 + 2
        visible: !card.frame.narrow
        look: Theme.caption
        color: Theme.ink3
        text: card.home.checkedText
    }
    DiskPicture {
        id: picture

        x: Theme.space5 + 1
        y: 53
        width: parent.width - 2 * x
        narrow: card.frame.narrow
        disk: card.disk
        home: card.home
    }
    Art {
        visible: card.home.clean
        anchors.horizontalCenter: parent.horizontalCenter
        y: 92
        width: 171
        height: 138
        drawing: "art/nook-clean"
    }
}
