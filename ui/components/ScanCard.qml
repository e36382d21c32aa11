// The progress of a scan where its result will stand.
import QtQuick
import Nookwise

Card {
    id: card

    required property ScanModel scan
    required property string step

    implicitHeight: 102
    Accessible.role: Accessible.ProgressBar
    Accessible.name: step + ", " + Math.round(scan.fraction * 100) + " per cent"

    Column {
        anchors.fill: parent
        anchors.leftMargin: Theme.space5
        anchors.rightMargin: Theme.space5
        anchors.topMargin: Theme.space4

        Item {
            width: parent.width
            height: Theme.body.line

            Label {
                anchors.left: parent.left
                anchors.right: files.left
                weight: Font.DemiBold
                text: card.step
                elide: Text.ElideRight
            }
            Label {
                id: files

                anchors.right: parent.right
                look: Theme.small
                text: card.scan.filesText
                color: Theme.ink2
            }
        }
        Item {
            width: 1
            height: 13
        }
        ProgressLine {
            width: parent.width
            value: card.scan.fraction
        }
        Item {
            width: 1
            height: Theme.space3
        }
        Reassurance {
            text: "Nothing is moved until you review it."
            iconSize: 16
            look: Theme.caption
            color: Theme.ink3
        }
    }
}
