// How far a call is that holds up the window. Whole at once, because nothing moves meanwhile.
import QtQuick
import Nookwise

Rectangle {
    id: busy

    required property BusyModel work

    visible: work.busy
    color: Theme.scrim

    Card {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(parent.height * 0.25)
        width: 480
        height: column.height + 2 * Theme.space7
        radius: Theme.radiusSheet
        border.color: Theme.lineStrong
        Accessible.role: Accessible.ProgressBar
        Accessible.name: title.text + ", " + busy.work.countText

        Shadow {
            z: -1
        }
        Column {
            id: column

            x: Theme.space7
            y: Theme.space7
            width: parent.width - 2 * x
            spacing: Theme.space3

            Label {
                id: title

                look: Theme.sheetTitle
                text: "Working on your files"
            }
            ProgressLine {
                width: parent.width
                still: true
                value: busy.work.fraction
            }
            Label {
                look: Theme.small
                color: Theme.ink2
                text: busy.work.countText
            }
        }
    }
}
