// The pile's largest files, cut to scale.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: strip

    required property SweepModel sweep
    // The row to point out, or -1.
    required property int markedRow

    signal picked(int row)

    readonly property PilePalette palette_: Palettes.of(sweep.pile)
    readonly property int gap: 2
    readonly property int smallest: 6
    readonly property bool rest: sweep.stripRestText !== ""
    readonly property int restWidth: rest ? Math.min(Math.max(width * (1 - sweep.stripShare), 48), width * 0.15) : 0
    readonly property int blocksWidth: width - (rest ? restWidth + gap : 0)

    // Whole pixels, so that no gap is wider than another; every block keeps a few.
    function edge(part: real, block: int): int {
        return Math.round((blocksWidth - blocks.count * smallest) * part) + block * smallest
    }

    Accessible.role: Accessible.Graphic
    Accessible.name: sweep.spokenStrip

    Item {
        Repeater {
            id: blocks

            model: strip.sweep.strip

            Rectangle {
                id: block

                required property int index
                required property int row
                required property string name
                required property real from
                required property real to
                required property bool ticked

                readonly property bool marked: row === strip.markedRow

                x: strip.edge(from, index)
                width: Math.max(1, strip.edge(to, index + 1) - x - (index === blocks.count - 1 ? 0 : strip.gap))
                height: strip.height
                radius: Theme.radiusCheck
                color: !ticked ? Theme.card : index % 2 === 0 ? strip.palette_.frontTop : strip.palette_.frontBottom
                border.width: marked ? Theme.strongLine : 0
                border.color: strip.palette_.deep

                DashedOutline {
                    visible: !block.ticked && !block.marked
                    anchors.fill: parent
                    color: strip.palette_.frontBottom
                    radius: Math.min(block.radius, block.width / 2)
                }
                Label {
                    x: 10
                    width: parent.width - 2 * x
                    anchors.verticalCenter: parent.verticalCenter
                    visible: block.width >= 64
                    look: Theme.caption
                    weight: Font.Medium
                    color: strip.palette_.deep
                    text: block.name
                    elide: Text.ElideRight
                }
                TapHandler {
                    onTapped: strip.picked(block.row)
                }
            }
        }
        Rectangle {
            visible: strip.rest
            x: strip.width - width
            width: strip.restWidth
            height: strip.height
            radius: Theme.radiusCheck
            color: strip.palette_.wash
            border.width: Theme.hairline
            border.color: strip.palette_.frontTop

            Label {
                x: 10
                anchors.verticalCenter: parent.verticalCenter
                look: Theme.caption
                weight: Font.Medium
                color: strip.palette_.deep
                text: strip.sweep.stripRestText
            }
        }
    }
}
