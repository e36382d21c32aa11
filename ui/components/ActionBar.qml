// The foot of a working screen: what the action would do.
import QtQuick
import Nookwise

Rectangle {
    id: bar

    required property Frame frame
    required property string sentence
    required property string caption

    implicitHeight: frame.low ? 72 : 80
    color: Theme.card
    Accessible.role: Accessible.StatusBar
    Accessible.name: sentence + (caption === "" ? "" : ", " + caption)

    Rectangle {
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: bar.frame.margin
        width: bar.frame.column
        spacing: Theme.space1 / 2

        Label {
            width: parent.width
            weight: Font.Medium
            text: bar.sentence
            elide: Text.ElideRight
        }
        Label {
            width: parent.width
            visible: text !== ""
            look: Theme.caption
            text: bar.caption
            color: Theme.ink3
            elide: Text.ElideRight
        }
    }
}
