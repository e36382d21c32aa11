// The mark of the one choice among several.
import QtQuick
import Nookwise

Rectangle {
    required property bool chosen

    width: 20
    height: 20
    radius: width / 2
    color: Theme.card
    border.width: 1.5
    border.color: chosen ? Theme.accent : Theme.box

    Rectangle {
        anchors.centerIn: parent
        visible: parent.chosen
        width: 10
        height: 10
        radius: width / 2
        color: Theme.accent
    }
}
