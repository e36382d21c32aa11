// The five steps of the first scan.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Card {
    id: card

    required property ScanModel scan

    implicitHeight: 100
    Accessible.role: Accessible.ProgressBar
    Accessible.name: scan.step + ", " + Math.round(scan.fraction * 100) + " per cent"

    Row {
        id: steps

        anchors.fill: parent
        anchors.leftMargin: Theme.space6
        anchors.rightMargin: Theme.space6
        anchors.topMargin: Theme.space5
        spacing: 6

        Repeater {
            model: card.scan.steps

            Column {
                id: step

                required property string title
                required property string glyph
                required property string stage
                required property real fill
                required property string caption

                readonly property bool now: stage === "now"
                readonly property bool done: stage === "done"

                width: Math.floor((steps.width - 4 * steps.spacing) / 5)

                Row {
                    spacing: Theme.space2

                    Icon {
                        glyph: step.done ? "check" : step.glyph
                        color: step.now ? Theme.accent : Theme.ink2
                    }
                    Label {
                        look: Theme.small
                        weight: step.now ? Font.DemiBold : Font.Medium
                        color: step.now || step.done ? Theme.ink : Theme.ink3
                        text: step.title
                    }
                }
                Item {
                    width: 1
                    height: 10
                }
                ProgressLine {
                    width: parent.width
                    value: step.fill
                }
                Item {
                    width: 1
                    height: 8
                }
                Label {
                    width: parent.width
                    look: Theme.caption
                    color: Theme.ink3
                    text: step.caption
                    elide: Text.ElideRight
                }
            }
        }
    }
}
