// The review of identical files.
import QtQuick
import Nookwise

ContentScreen {
    id: screen

    required property DuplicatesModel duplicates
    required property PilesModel piles
    required property ScanModel scan

    readonly property bool empty: duplicates.empty && !scan.scanning
    readonly property int topEdge: frame.low ? Theme.space4 : Theme.space5

    bar: actions.visible ? actions : null

    function takeFocus(reason: int) {
        tabs.focusSelected(reason)
    }

    // The last group took the focus with it.
    function followFocus() {
        if (empty && activeFocus && (list.activeFocus || trash.activeFocus || Window.activeFocusItem === screen))
            takeFocus(Qt.OtherFocusReason)
    }

    onEmptyChanged: if (empty) settled.restart()
    // Back from the question.
    onActiveFocusChanged: if (activeFocus && empty) settled.restart()

    // By then every binding knows what is left.
    Timer {
        id: settled

        interval: 0
        onTriggered: screen.followFocus()
    }

    Binding {
        target: screen.duplicates
        property: "columns"
        value: screen.frame.narrow ? 2 : 3
    }
    PileTabs {
        id: tabs

        x: screen.frame.margin
        y: screen.topEdge
        piles: screen.piles
        scanning: screen.scan.scanning
        narrow: screen.frame.narrow
    }
    PileHeader {
        id: header

        anchors.top: tabs.bottom
        anchors.topMargin: screen.frame.low ? Theme.space3 : Theme.space5
        x: screen.frame.margin
        width: screen.frame.column
        visible: !screen.empty
        frame: screen.frame
        name: "duplicates"
        count: screen.scan.scanning ? 1 : screen.duplicates.count
        title: screen.duplicates.title
        subtitle: screen.duplicates.subtitle
        total: screen.scan.scanning ? "" : screen.duplicates.totalText
        countText: screen.duplicates.countText
    }
    DuplicateList {
        id: list

        anchors.fill: content
        anchors.topMargin: Theme.space4
        visible: !screen.scan.scanning && !screen.empty
        enabled: visible
        frame: screen.frame
        duplicates: screen.duplicates
    }
    DuplicatesScanning {
        anchors.fill: content
        visible: screen.scan.scanning
        frame: screen.frame
        scan: screen.scan
    }
    EmptyState {
        anchors.fill: content
        visible: screen.empty
        enabled: visible
        picture: "nook-one-of-everything"
        title: "One of everything"
        sentence: "No copies across Desktop, Documents and Downloads."
    }
    Item {
        id: content

        anchors.top: screen.empty ? tabs.bottom : header.bottom
        anchors.bottom: actions.visible ? actions.top : parent.bottom
        width: parent.width
    }
    ActionBar {
        id: actions

        anchors.bottom: parent.bottom
        width: parent.width
        visible: !screen.empty && !screen.scan.scanning
        enabled: visible
        frame: screen.frame
        sentence: screen.duplicates.comesBackText
        caption: "One copy of every file stays where it is"

        PushButton {
            id: trash

            kind: PushButton.Kind.Primary
            size: 48
            glyph: "trash"
            text: screen.duplicates.trashText
            onClicked: screen.duplicates.trashAllExtras()
        }
    }
}
