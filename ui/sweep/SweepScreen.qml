// The review of a pile.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

ContentScreen {
    id: screen

    required property SweepModel sweep
    required property ClearedModel cleared
    required property PilesModel piles
    required property ScanModel scan

    readonly property bool justCleared: cleared.cleared && !scan.scanning
    readonly property bool empty: sweep.empty && !scan.scanning && !justCleared
    // Files were asked to go, by key or not, and rows went since.
    property bool asked: false
    property bool byKey: false
    property bool rowsWent: false
    readonly property int topEdge: frame.low ? Theme.space4 : Theme.space5

    readonly property string hint: "Everything goes to the Trash first. iCloud-only files are skipped."

    bar: actions.visible ? actions : null

    function takeFocus(reason: int) {
        if (justCleared)
            next.takeFocus(reason)
        else
            tabs.focusSelected(reason)
    }

    function trashTicked(withKey: bool) {
        if (!trash.enabled)
            return
        byKey = withKey
        asked = true
        rowsWent = false
        sweep.trashTicked()
    }

    // Where to go on when files have gone, or what had the focus has: the next row, or what the
    // emptied pile leads to.
    function followRows() {
        if (!activeFocus || scan.scanning)
            return
        const lost = Window.activeFocusItem === screen
        const gone = asked && rowsWent
        asked = false
        if (!lost && !gone)
            return
        if (review.visible)
            review.focusList(byKey || !gone)
        else
            takeFocus(byKey || !gone ? Qt.TabFocusReason : Qt.OtherFocusReason)
    }

    // Back from the question.
    onActiveFocusChanged: if (activeFocus && asked) settled.restart()

    Keys.onDeletePressed: event => {
        if (!event.isAutoRepeat)
            trashTicked(true)
    }
    Connections {
        target: screen.sweep

        function onPileChanged() {
            screen.rowsWent = true
            settled.restart()
        }
    }
    // By then every binding knows what is left.
    Timer {
        id: settled

        interval: 0
        onTriggered: screen.followRows()
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
        id: review

        anchors.fill: content
        visible: !screen.scan.scanning && !screen.empty && !screen.justCleared
        enabled: visible
        frame: screen.frame
        sweep: screen.sweep
        hint: screen.hint
    }
    SweepScanning {
        anchors.fill: content
        visible: screen.scan.scanning
        enabled: visible
        frame: screen.frame
        sweep: screen.sweep
        scan: screen.scan
    }
    ClearedState {
        id: next

        anchors.fill: content
        visible: screen.justCleared
        enabled: visible
        frame: screen.frame
        cleared: screen.cleared
    }
    EmptyState {
        anchors.fill: content
        visible: screen.empty
        enabled: visible
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
        visible: !screen.empty && !screen.justCleared
        enabled: visible
        frame: screen.frame
        sentence: screen.scan.scanning ? "Still reading" : screen.sweep.comesBackText
        caption: screen.scan.scanning || screen.frame.narrow ? screen.hint : screen.sweep.staysText

        PushButton {
            id: trash

            kind: PushButton.Kind.Primary
            size: 48
            glyph: "trash"
            enabled: screen.sweep.canTrash
            text: screen.sweep.trashText
            onClicked: screen.trashTicked(visualFocus)
        }
    }
}
