// What happens when files are let go over a pane.
import QtQuick
import Nookwise

Rectangle {
    id: hint

    required property PaneModel pane
    // Files that come from elsewhere are copied, and no key changes that.
    required property string sentence
    required property string other

    radius: Theme.radiusButton
    color: Theme.washPale
    Accessible.role: Accessible.Notification
    Accessible.name: sentence + (other === "" ? "" : ", " + other)

    DashedOutline {
        anchors.fill: parent
        lineWidth: Theme.strongLine
        dashes: [1.5, 3]
        color: Theme.accent
        radius: Theme.radiusButton
    }
    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space4

        Art {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 148
            height: 118
            drawing: "art/folder-scanned-" + hint.pane.art
        }
        Item {
            width: 1
            height: Theme.space5
        }
        Label {
            width: parent.width
            look: Theme.sheetTitle
            color: Theme.accentPress
            text: hint.sentence
            horizontalAlignment: Text.AlignHCenter
        }
        Label {
            width: parent.width
            visible: text !== ""
            look: Theme.lead
            color: Theme.ink2
            text: hint.other
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
