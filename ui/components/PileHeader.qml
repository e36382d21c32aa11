// What lies in a pile: artwork, title, figures.
import QtQuick
import Nookwise

Item {
    id: header

    required property Frame frame
    required property string name
    required property real count
    required property string title
    required property string subtitle
    // Empty while they are not known.
    required property string total
    required property string countText

    implicitHeight: art.height

    FolderArt {
        id: art

        width: header.frame.narrow ? 80 : 104
        height: implicitHeight
        name: header.name
        count: header.count
    }
    Column {
        anchors.left: art.right
        anchors.leftMargin: Theme.space5
        anchors.right: figures.left
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: art.verticalCenter

        Label {
            width: parent.width
            look: Theme.title
            text: header.title
            elide: Text.ElideRight
            Accessible.ignored: false
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Label {
            width: parent.width
            look: Theme.small
            text: header.subtitle
            color: Theme.ink2
            elide: Text.ElideRight
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Column {
        id: figures

        anchors.right: parent.right
        anchors.verticalCenter: art.verticalCenter
        visible: header.total !== ""

        Label {
            anchors.right: parent.right
            look: Theme.total
            text: header.total
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Label {
            anchors.right: parent.right
            look: Theme.small
            text: header.countText
            color: Theme.ink2
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
