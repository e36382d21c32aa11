// The five piles side by side.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Row {
    id: cards

    required property Frame frame
    required property PilesModel piles
    required property bool scanning

    // The folder that the next card slips into while the folders are being read.
    property int ghost: 0

    readonly property real pitch: (width + spacing) / repeater.count

    spacing: Theme.space3

    Timer {
        running: cards.scanning && !Theme.reducedMotion && cards.visible
        repeat: true
        interval: Theme.scanningCardTime
        onTriggered: cards.ghost = (cards.ghost + 1) % repeater.count
    }
    Repeater {
        id: repeater

        model: cards.piles.rows

        PileCard {
            required property int index

            width: Math.round(cards.pitch * (index + 1)) - Math.round(cards.pitch * index) - cards.spacing
            height: cards.tallest
            narrow: cards.frame.narrow
            scanning: cards.scanning
            ghostCard: index === cards.ghost
            onClicked: cards.piles.open(index)
            onImplicitHeightChanged: cards.measure()
            Component.onCompleted: cards.measure()
        }
    }

    property real tallest: 0

    // All cards are as high as the one whose texts need most lines.
    function measure() {
        let height = 0
        for (let i = 0; i < repeater.count; ++i)
            height = Math.max(height, repeater.itemAt(i)?.implicitHeight ?? 0)
        tallest = height
    }
}
