// There is nothing to search yet.
import QtQuick
import Nookwise

EmptyState {
    id: waiting

    required property ScanModel scan

    picture: "nook-ask"
    title: "Still reading your folders…"
    sentence: "Results show up as soon as the first scan is done."

    Column {
        width: 360
        spacing: Theme.space2
        Accessible.role: Accessible.ProgressBar
        Accessible.name: waiting.scan.step + ", " + Math.round(waiting.scan.fraction * 100) + " per cent"

        ProgressLine {
            width: parent.width
            value: waiting.scan.fraction
        }
        Item {
            width: parent.width
            height: Theme.caption.line

            Label {
                anchors.left: parent.left
                anchors.right: files.left
                anchors.rightMargin: Theme.space2
                look: Theme.caption
                color: Theme.ink3
                text: waiting.scan.step
                elide: Text.ElideRight
            }
            Label {
                id: files

                anchors.right: parent.right
                look: Theme.caption
                color: Theme.ink3
                text: waiting.scan.filesText
            }
        }
    }
}
