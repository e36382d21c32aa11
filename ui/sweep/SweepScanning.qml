// The review before there is anything to review.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: scanning

    required property Frame frame
    required property SweepModel sweep
    required property ScanModel scan

    PileHeader {
        id: header

        x: scanning.frame.margin
        y: scanning.frame.low ? Theme.space3 : Theme.space5
        width: scanning.frame.column
        frame: scanning.frame
        name: scanning.sweep.pile
        count: 1
        title: scanning.sweep.title
        subtitle: scanning.sweep.subtitle
        total: ""
        countText: ""
    }
    ScanCard {
        id: card

        anchors.top: header.bottom
        anchors.topMargin: Theme.space4
        x: scanning.frame.margin
        width: scanning.frame.column
        scan: scanning.scan
        step: scanning.scan.step
    }
    Column {
        anchors.top: card.bottom
        anchors.topMargin: Theme.space5
        x: scanning.frame.margin
        width: scanning.frame.column

        Rectangle {
            width: parent.width
            height: Theme.hairline
            color: Theme.line
        }
        Repeater {
            // As long as names, reasons and paths are.
            model: [[220, 110], [168, 84], [260, 130], [196, 98], [150, 75]]

            SweepSkeletonRow {
                required property var modelData

                width: scanning.frame.column
                height: scanning.frame.low ? 52 : 56
                visible: y + height <= scanning.height - card.y - card.height - Theme.space5
                nameWidth: modelData[0]
                reasonWidth: modelData[1]
            }
        }
    }
}
