// The review of a pile.
import QtQuick
import Nookwise

ContentScreen {
    id: screen

    required property SweepModel sweep
    required property PilesModel piles
    required property ScanModel scan

    readonly property bool empty: sweep.empty && !scan.scanning
    readonly property int topEdge: frame.low ? Theme.space4 : Theme.space5

    readonly property string hint: "Everything goes to the Trash first. iCloud-only files are skipped."

    function takeFocus() {
        tabs.focusSelected(Qt.OtherFocusReason)
    }

    PileTabs {
        id: tabs

        x: screen.frame.margin
        y: screen.topEdge
        piles: screen.piles
        scanning: screen.scan.scanning
        narrow: screen.frame.narrow
    }
    SweepReview {
        anchors.fill: content
        visible: !screen.scan.scanning && !screen.empty
        enabled: visible
        frame: screen.frame
        sweep: screen.sweep
        hint: screen.hint
    }
    SweepScanning {
        anchors.fill: content
        visible: screen.scan.scanning
        frame: screen.frame
        sweep: screen.sweep
        scan: screen.scan
    }
    EmptyState {
        anchors.fill: content
        visible: screen.empty
        picture: "nook-empty-shelf"
        title: screen.sweep.title
        sentence: screen.sweep.emptyText

        PushButton {
            visible: screen.sweep.largestText !== ""
            kind: PushButton.Kind.Primary
            text: "Look at " + screen.sweep.largestText
            onClicked: screen.sweep.openLargest()
        }
        PushButton {
            glyph: "refresh"
            text: "Scan Again"
            onClicked: screen.scan.scanAgain()
        }
    }
    Item {
        id: content

        anchors.top: tabs.bottom
        anchors.bottom: actions.visible ? actions.top : parent.bottom
        width: parent.width
    }
    ActionBar {
        id: actions

        anchors.bottom: parent.bottom
        width: parent.width
        visible: !screen.empty
        frame: screen.frame
        sentence: screen.scan.scanning ? "Still reading" : screen.sweep.comesBackText
        caption: screen.scan.scanning || screen.frame.narrow ? screen.hint : screen.sweep.staysText
    }
}
